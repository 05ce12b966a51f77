#pragma once

#include "tests/backend_script/ScriptedBackend.h"
#include "tests/filter/AnimatedPage.h"

#include <string>

namespace authfilter {

/// The XML of what shows movies.
class CMovieXml : public CAnimatedPage {
protected:
  /// A movie whose still picture is green.
  static std::string File(const std::string& properties = "", const std::string& chapters = "") {
    return R"(<movie type="movie-file" duration="10" )" + properties + R"(><filename path="/films" name="a.mp4"/>)" +
           Bitmap("attachment-thumbnail", *wxGREEN) + chapters + "</movie>";
  }
  static std::string Movie(int x, int y, int width, int height, const std::string& properties = "",
                           const std::string& content = File()) {
    return R"(<animation type-name="movie-image" )" + properties + ">" + Frame(x, y, width, height) + content +
           "</animation>";
  }
  static std::string Button(int x, int y, int width, int height, const std::string& skin, const std::string& element) {
    return R"(<state-button type-name="authed-state-button-action" label="Play">)" + Frame(x, y, width, height) + skin +
           R"(<action type="play" change-page="go-back"/>)" +
           (element.empty() ? "" : "<element>" + element + "</element>") + "</state-button>";
  }
  static std::string State(const std::string& name, const std::string& layers) {
    return "<" + name + " name=\"" + name + "\"><layers>" + layers + "</layers></" + name + ">";
  }
  static std::string Skin(const std::string& states) {
    return R"(<skin type="buttonskin" id=""><states>)" + states + "</states></skin>";
  }
  /// A picture that is stretched over the whole of the skin.
  static std::string Picture(const wxImage& image) {
    return "<animation>" + Bitmap("attachment-bitmap", image) + "</animation>";
  }
  static std::string Picture(const wxColour& colour) {
    return "<animation>" + Bitmap("attachment-bitmap", colour) + "</animation>";
  }
  /// The place of the movie, so many pixels of the skin from its edges.
  static std::string Place(int margin, const std::string& shape = "") {
    const std::string size = std::to_string(margin);
    return R"(<custom id="thumbnail"><content-margins left=")" + size + "\" top=\"" + size + "\" right=\"" + size +
           "\" bottom=\"" + size + "\"/>" + shape + "</custom>";
  }
  /// A shape that gets more and more transparent to the right.
  static std::string Shape() {
    const graphics::CToolkitLock lock;
    wxImage image(16, 4);
    image.InitAlpha();
    for (int y = 0; y < 4; ++y)
      for (int x = 0; x < 16; ++x) image.SetAlpha(x, y, static_cast<unsigned char>(255 - 15 * x));
    return R"(<shape type="shapeskin" id="fade"><states>)" + State("normal", Picture(image)) + "</states></shape>";
  }
  /// A text that is larger than the skin.
  static std::string Text() {
    return R"(<text horzalign="0.5" vertalign="0.5"><font name="DejaVu Sans" pointsize="16" style="90" weight="92" )"
           R"(underlined="false"/><color red="255" green="255" blue="255" alpha="255"/></text>)";
  }
};

/// Pages whose movies are played by the scripted backend.
class CMoviePage : public CMovieXml {
protected:
  static int Calls(const CScriptedBackend& backend, script::EOperation operation) {
    return backend->GetCalls(operation);
  }

  const CScriptedBackend backend;
};

}  // namespace authfilter
