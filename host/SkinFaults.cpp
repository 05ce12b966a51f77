#include "host/SkinFaults.h"

#include "host/ElementFaults.h"
#include "host/Spelling.h"

#include <string>

namespace host {

namespace {

// What the module takes.
constexpr std::size_t maxLayers = 100;
// The state that pages show.
constexpr char shown[] = "normal";

class SkinCheck {
public:
  SkinCheck(const xmlNode& skin, Findings& findings) : skin_(skin), findings_(findings) {}

  void run() {
    const bool isShape = findProperty(skin_, "type").value_or("") == "shapeskin";
    const xmlNode* states = findChild(skin_, "states");
    for (const xmlNode* state = states ? firstElement(*states) : nullptr; state; state = nextElement(*state)) {
      if (isShape && !sameName(nameOf(*state), shown))
        warn(*state, tagOf(*state) + " is ignored: a shapeskin has the state <normal> alone");
      findStateFaults(*state);
    }
    if (!states || !findChild(*states, shown)) warn(skin_, describeSkin() + " has no state <normal> and shows nothing");
  }

private:
  void warn(const xmlNode& place, const std::string& text) { findings_.warning(lineOf(place), text); }

  std::string describeSkin() const {
    const std::string id = findProperty(skin_, "id").value_or("");
    return id.empty() ? tagOf(skin_) : tagOf(skin_) + " " + inQuotes(id);
  }

  void findStateFaults(const xmlNode& state) {
    const std::string name = findProperty(state, "name").value_or("");
    if (!name.empty() && !sameName(name, nameOf(state)))
      warn(state, tagOf(state) + " is the state " + inQuotes(name) + ", as its \"name\" says" +
                      (sameName(nameOf(state), shown) ? ": nothing is left for pages to show" : ""));
    const xmlNode* layers = findChild(state, "layers");
    const std::size_t count = countChildren(layers);
    if (count == 0 && sameName(nameOf(state), shown))
      warn(state, tagOf(state) + " of " + describeSkin() + " has no layers and shows nothing");
    if (count > maxLayers)
      warn(*layers, tagOf(state) + " has " + std::to_string(count) + " layers: only the first 100 are read");
    for (const xmlNode* layer = layers ? firstElement(*layers) : nullptr; layer; layer = nextElement(*layer)) {
      if (nameOf(*layer) == "animation") findPictureFaults(*layer);
      if (nameOf(*layer) == "text") findTextFaults(*layer);
    }
  }

  void findPictureFaults(const xmlNode& layer) {
    const xmlNode* props = findChild(layer, "props");
    if (!props) return;
    const std::string wanted = findProperty(layer, "uriprop").value_or("");
    if (wanted.empty()) warn(layer, tagOf(layer) + " has <props> but no \"uriprop\" that chooses one of them");
    bool found = wanted.empty();
    for (const xmlNode* prop = firstElement(*props); prop; prop = nextElement(*prop)) {
      const std::string name = nameOf(*prop);
      found |= name == wanted;
      if (!findChild(*prop, "prop-" + name))
        warn(*prop, tagOf(*prop) + " of <props> has no picture <prop-" + name + ">");
    }
    if (!found) warn(layer, tagOf(layer) + " uriprop=" + inQuotes(wanted, '"') + ": <props> has no such picture");
  }

  void findTextFaults(const xmlNode& layer) {
    const xmlNode* shadow = findChild(layer, "shadow-rel-position");
    if (shadow && (numberOf(*shadow, "x") < 0 || numberOf(*shadow, "y") < 0) && numberOf(*shadow, "x") <= 0 &&
        numberOf(*shadow, "y") <= 0)
      warn(*shadow, tagOf(*shadow) + " shows no shadow: neither \"x\" nor \"y\" is above 0");
  }

  const xmlNode& skin_;
  Findings& findings_;
};

}  // namespace

void findSkinFaults(const xmlNode& skin, Findings& findings) {
  SkinCheck(skin, findings).run();
}

}  // namespace host
