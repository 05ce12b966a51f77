#include "host/PageVocabulary.h"

#include "host/Xml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace host {

namespace {

constexpr std::int64_t lowestInt = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t highestInt = std::numeric_limits<std::int32_t>::max();

constexpr ValueForm whole(std::string_view name, std::int64_t low, std::int64_t high, std::string_view otherwise) {
  return {name, ValueKind::integer, low, high, {}, otherwise, false};
}

constexpr ValueForm clamped(std::string_view name, std::int64_t low, std::int64_t high, std::string_view otherwise) {
  return {name, ValueKind::integer, low, high, {}, otherwise, false, true};
}

constexpr ValueForm oneOf(std::string_view name, ValueKind kind, std::span<const std::string_view> words,
                          std::string_view otherwise, bool refused = false) {
  return {name, kind, lowestInt, highestInt, words, otherwise, refused};
}

constexpr std::array<std::string_view, 2> booleans = {"true", "false"};
constexpr std::array<std::string_view, 13> penStyles = {"100", "101", "102", "103", "104", "105", "106",
                                                        "111", "112", "113", "114", "115", "116"};
constexpr std::array<std::string_view, 8> brushStyles = {"100", "106", "111", "112", "113", "114", "115", "116"};
constexpr std::array<std::string_view, 3> fontStyles = {"90", "93", "94"};
constexpr std::array<std::string_view, 3> fontWeights = {"90", "91", "92"};
constexpr std::array<std::string_view, 3> extensions = {"png", "jpg", "bmp"};
constexpr std::array<std::string_view, 4> shapes = {"rectangle", "rounded-rectangle", "ellipse", "free-form"};
constexpr std::array<std::string_view, 3> aligns = {"top", "center", "bottom"};
constexpr std::array<std::string_view, 2> skinTypes = {"buttonskin", "shapeskin"};
constexpr std::array<std::string_view, 2> animationTypes = {"animation", "gif"};
constexpr std::array<std::string_view, 3> dataTypes = {"string", "int", "rect"};
constexpr std::array<std::string_view, 5> movieTypes = {"movie-file", "slideshow", "edited-movie", "theme", "custom"};
constexpr std::array<std::string_view, 2> aspectRatios = {"16:9", "4:3"};
constexpr std::array<std::string_view, 3> scaleModes = {"scale-width", "scale-height", "scale-fitting"};
constexpr std::array<std::string_view, 4> actionTypes = {"undefined", "change-page", "play", "play-all"};
constexpr std::array<std::string_view, 3> pageChanges = {"goto-mainpage", "go-back", "goto-page"};

constexpr ValueForm exactlyOneOf(std::string_view name, std::span<const std::string_view> words,
                                 std::string_view otherwise) {
  return {name, ValueKind::word, lowestInt, highestInt, words, otherwise, false, false, true};
}

constexpr ValueForm refusedUnless(std::string_view name, std::span<const std::string_view> words, bool mayBeEmpty) {
  return {name, ValueKind::word, lowestInt, highestInt, words, "", true, false, true, mayBeEmpty};
}

constexpr ValueForm text{"text", ValueKind::text, 0, 0, {}, "", false};
constexpr ValueForm number{"number", ValueKind::number, 0, 0, {}, "it counts as 0", false};
constexpr ValueForm boolean = oneOf("boolean", ValueKind::boolean, booleans, "it counts as false");
constexpr ValueForm integer = whole("integer", lowestInt, highestInt, "it is ignored");
constexpr ValueForm identity = whole("identity", std::numeric_limits<std::int64_t>::min(),
                                     std::numeric_limits<std::int64_t>::max(), "the element is not shared");
constexpr ValueForm group = whole("group-number", 1, highestInt, "the group is left out");
constexpr ValueForm channel = clamped("channel", 0, 255, "it counts as 0");
constexpr ValueForm penWidth = clamped("pen-width", 0, 65535, "it is ignored");
constexpr ValueForm pointSize = clamped("point-size", 1, 2000, "it is ignored");
constexpr ValueForm penStyle = oneOf("pen-style", ValueKind::integer, penStyles, "it is ignored");
constexpr ValueForm brushStyle = oneOf("brush-style", ValueKind::integer, brushStyles, "it is ignored");
constexpr ValueForm fontStyle = oneOf("font-style", ValueKind::integer, fontStyles, "it is ignored");
constexpr ValueForm fontWeight = oneOf("font-weight", ValueKind::integer, fontWeights, "it counts as 90");
constexpr ValueForm extension = oneOf("picture-extension", ValueKind::word, extensions, "the picture is not shown");
constexpr ValueForm shapeWord = oneOf("shape-word", ValueKind::word, shapes, "the module refuses the page", true);
constexpr ValueForm alignWord = oneOf("vertical-align", ValueKind::word, aligns, "the module refuses the page", true);
constexpr ValueForm skinType = exactlyOneOf("skin-type", skinTypes, "there is no skin");
constexpr ValueForm animationType = exactlyOneOf("animation-type", animationTypes, "there is no animation");
constexpr ValueForm dataType = oneOf("data-type", ValueKind::word, dataTypes, "the entry is left out");
constexpr ValueForm movieType = refusedUnless("movie-type", movieTypes, false);
constexpr ValueForm aspectRatio = exactlyOneOf("aspect-ratio", aspectRatios, "it is ignored");
constexpr ValueForm scaleMode = refusedUnless("scale-mode", scaleModes, true);
constexpr ValueForm actionType = refusedUnless("action-type", actionTypes, false);
constexpr ValueForm pageChange = refusedUnless("page-change", pageChanges, true);
constexpr ValueForm kindName{"kind", ValueKind::text, 0, 0, {}, "", false};

constexpr PropertyForm pointProperties[] = {{"x", &number}, {"y", &number}};
constexpr NodeForm point{nullptr, pointProperties, {}};

constexpr PropertyForm sizeProperties[] = {{"width", &number}, {"height", &number}};
constexpr NodeForm size{nullptr, sizeProperties, {}};

constexpr PropertyForm rectProperties[] = {{"x", &number}, {"y", &number}, {"width", &number}, {"height", &number}};
constexpr NodeForm rect{nullptr, rectProperties, {}};

constexpr PropertyForm marginProperties[] = {
    {"left", &number},        {"top", &number},        {"right", &number},        {"bottom", &number},
    {"left-factor", &number}, {"top-factor", &number}, {"right-factor", &number}, {"bottom-factor", &number}};
constexpr NodeForm margins{nullptr, marginProperties, {}};

constexpr PropertyForm colourProperties[] = {
    {"red", &channel}, {"green", &channel}, {"blue", &channel}, {"alpha", &channel}};

// Of letters that are opaque whatever their alpha.
constexpr NodeForm ink{nullptr, colourProperties, {}};

constexpr ChildForm colourChild[] = {{"color", &colourForm}};
constexpr PropertyForm brushProperties[] = {{"style", &brushStyle}};
constexpr NodeForm brush{nullptr, brushProperties, colourChild};
constexpr PropertyForm penProperties[] = {{"style", &penStyle}, {"width", &penWidth}};
constexpr NodeForm pen{nullptr, penProperties, colourChild};

constexpr PropertyForm fontProperties[] = {{"name", &text},
                                           {"pointsize", &pointSize},
                                           {"style", &fontStyle},
                                           {"weight", &fontWeight},
                                           {"underlined", &boolean}};
constexpr NodeForm font{nullptr, fontProperties, {}};

constexpr PropertyForm gradientProperties[] = {{"ok", &boolean}};
constexpr ChildForm gradientChildren[] = {{"start", &colourForm}, {"end", &colourForm}};
constexpr NodeForm gradient{nullptr, gradientProperties, gradientChildren};

constexpr PropertyForm pictureProperties[] = {{"extension", &extension}, {"name", &text}};
constexpr NodeForm picture{nullptr, pictureProperties, {}, nullptr, false, Content::picture};
constexpr PropertyForm richTextProperties[] = {{"name", &text}};
constexpr NodeForm richText{nullptr, richTextProperties, {}, nullptr, false, Content::richText};

constexpr NodeForm tag{nullptr, {}, {}};
constexpr NodeForm tags{nullptr, {}, {}, &tag};
constexpr PropertyForm groupProperties[] = {{"nr", &group}};
constexpr NodeForm groupNode{nullptr, groupProperties, {}};
constexpr ChildForm groupsChildren[] = {{"group", &groupNode, true}};
constexpr NodeForm groups{nullptr, {}, groupsChildren};

constexpr PropertyForm dataProperties[] = {{"type", &dataType}, {"value", &text}};
constexpr ChildForm dataChildren[] = {{"value", &rect}};
constexpr NodeForm xdata{nullptr, {}, {}, &dataForm};

constexpr ChildForm segmentChildren[] = {{"start", &point}, {"end", &point}};
constexpr NodeForm segment{&elementForm, {}, segmentChildren};
constexpr ChildForm figureChildren[] = {{"brush", &brush}, {"pen", &pen}};
constexpr NodeForm figure{&elementForm, {}, figureChildren};

constexpr PropertyForm labelProperties[] = {{"text", &text}};
constexpr ChildForm labelChildren[] = {{"font", &font}, {"color", &colourForm}};
constexpr NodeForm label{&elementForm, labelProperties, labelChildren};

constexpr PropertyForm layerProperties[] = {{"horzalign", &number}, {"vertalign", &number}};
constexpr ChildForm layerChildren[] = {{"content-margins", &margins}};
constexpr NodeForm layer{nullptr, layerProperties, layerChildren};
constexpr NodeForm prop{nullptr, {}, {}, &picture};
constexpr NodeForm props{nullptr, {}, {}, &prop};
constexpr PropertyForm animationLayerProperties[] = {
    {"scaling-enabled", &boolean}, {"scaling-proportional", &boolean}, {"uriprop", &text}};
constexpr ChildForm animationLayerChildren[] = {
    {"scale-margins", &margins}, {"attachment-bitmap", &picture}, {"props", &props}};
constexpr NodeForm animationLayer{&layer, animationLayerProperties, animationLayerChildren};
constexpr PropertyForm textLayerProperties[] = {
    {"halo-enabled", &boolean}, {"multiline-enabled", &boolean}, {"prop", &text}};
constexpr ChildForm textLayerChildren[] = {
    {"font", &font}, {"color", &ink}, {"shadow-color", &ink}, {"shadow-rel-position", &point}, {"halo-color", &ink}};
constexpr NodeForm textLayer{&layer, textLayerProperties, textLayerChildren};
constexpr PropertyForm customLayerProperties[] = {{"id", &text}};
constexpr ChildForm customLayerChildren[] = {{"shape", &skinForm}};
constexpr NodeForm customLayer{&layer, customLayerProperties, customLayerChildren};
constexpr ChildForm layersChildren[] = {
    {"animation", &animationLayer, true}, {"text", &textLayer, true}, {"custom", &customLayer, true}};
constexpr NodeForm layers{.base = nullptr, .properties = {}, .children = layersChildren, .exactNames = true};
constexpr PropertyForm stateProperties[] = {{"name", &text}};
constexpr ChildForm stateChildren[] = {{"layers", &layers}};
constexpr NodeForm state{nullptr, stateProperties, stateChildren};
constexpr ChildForm statesChildren[] = {{"hover", &state},    {"hover_low", &state}, {"down", &state},
                                        {"disabled", &state}, {"normal", &state},    {"selected", &state}};
constexpr NodeForm states{nullptr, {}, statesChildren};
constexpr PropertyForm skinProperties[] = {{"unique", &identity}, {"type", &skinType}, {"id", &text}};
constexpr ChildForm skinChildren[] = {{"states", &states}};

constexpr PropertyForm actionProperties[] = {{"type", &actionType},
                                             {"movie-id", &integer},
                                             {"chapter", &integer},
                                             {"change-page", &pageChange},
                                             {"page", &text}};

constexpr PropertyForm buttonProperties[] = {{"label", &text}, {"hint", &text}};
constexpr ChildForm buttonChildren[] = {
    {"skin", &skinForm}, {"attachment-bitmap", &picture}, {"action", &actionForm}, {"element", &documentForm}};
constexpr NodeForm button{&elementForm, buttonProperties, buttonChildren};

constexpr ChildForm mirrorChildren[] = {{"graphic-document", &documentForm}};
constexpr NodeForm mirror{&elementForm, {}, mirrorChildren};

constexpr PropertyForm frameListProperties[] = {
    {"type", &animationType}, {"count", &integer}, {"delay", &integer}, {"loop", &boolean}};
constexpr NodeForm frameList{
    .base = nullptr, .properties = frameListProperties, .children = {}, .anyChild = &picture, .numbered = "frame"};
constexpr PropertyForm gifFrameProperties[] = {{"delay", &integer}};
constexpr ChildForm gifFrameChildren[] = {{"frame", &picture}};
constexpr NodeForm gifFrame{nullptr, gifFrameProperties, gifFrameChildren};
constexpr PropertyForm gifProperties[] = {{"type", &animationType}, {"count", &integer}, {"loop", &boolean}};
constexpr PropertyForm pixelProperties[] = {{"x", &integer}, {"y", &integer}};
constexpr NodeForm pixels{nullptr, pixelProperties, {}};
constexpr ChildForm gifChildren[] = {{"size", &pixels}};
constexpr NodeForm gif{
    .base = nullptr, .properties = gifProperties, .children = gifChildren, .anyChild = &gifFrame, .numbered = "frame"};
constexpr Variant animationVariants[] = {{"animation", &frameList}, {"gif", &gif}};
constexpr NodeForm animation{
    .base = nullptr, .properties = frameListProperties, .children = {}, .variants = animationVariants};
constexpr ChildForm animationChildren[] = {{"animation", &animation}};
constexpr NodeForm animationImage{&elementForm, {}, animationChildren};

constexpr PropertyForm fileNameProperties[] = {{"path", &text}, {"name", &text}};
constexpr NodeForm fileName{nullptr, fileNameProperties, {}};
constexpr PropertyForm attachedTextProperties[] = {{"name", &text}, {"size", &integer}};
constexpr NodeForm timeline{nullptr, attachedTextProperties, {}, nullptr, false, Content::timeline};
constexpr NodeForm editorText{nullptr, attachedTextProperties, {}, nullptr, false, Content::opaque};
constexpr PropertyForm chapterProperties[] = {{"timestamp", &number}, {"name", &text}};
constexpr ChildForm chapterChildren[] = {{"attachment-thumbnail", &picture}};
constexpr NodeForm chapter{nullptr, chapterProperties, chapterChildren};
constexpr ChildForm chaptersChildren[] = {{"chapter", &chapter, true}};
constexpr NodeForm chapters{.base = nullptr, .properties = {}, .children = chaptersChildren, .exactNames = true};
constexpr NodeForm finishedFiles{nullptr, {}, {}};
constexpr PropertyForm movieProperties[] = {
    {"unique", &identity}, {"type", &movieType},          {"title", &text},
    {"duration", &number}, {"menu-entry", &boolean},      {"min-duration", &number},
    {"width", &integer},   {"height", &integer},          {"audio-duration", &number},
    {"id", &integer},      {"aspect-ratio", &aspectRatio}};
constexpr ChildForm movieChildren[] = {{"finished-files", &finishedFiles},
                                       {"attachment-thumbnail", &picture},
                                       {"attachment-thumbnail-large", &picture},
                                       {"chapters", &chapters}};
constexpr ChildForm movieFileChildren[] = {{"filename", &fileName}};
constexpr NodeForm movieFile{&movieForm, {}, movieFileChildren};
constexpr ChildForm editableChildren[] = {{"editor.xml", &editorText}, {"vantra.xml", &timeline}};
constexpr NodeForm editable{&movieForm, {}, editableChildren};
constexpr PropertyForm themeProperties[] = {{"src", &text}};
constexpr ChildForm moviesChildren[] = {{"movie", &movieForm, true}};
constexpr NodeForm movies{nullptr, {}, moviesChildren};
constexpr ChildForm themeChildren[] = {{"movies", &movies}};
constexpr NodeForm theme{&movieForm, themeProperties, themeChildren};
constexpr Variant movieVariants[] = {
    {"movie-file", &movieFile}, {"slideshow", &editable}, {"edited-movie", &editable}, {"theme", &theme}};

constexpr PropertyForm movieImageProperties[] = {{"chapter", &integer}, {"scale-mode", &scaleMode}};
constexpr ChildForm movieImageChildren[] = {{"skin", &skinForm}, {"movie", &movieForm}};
constexpr NodeForm movieImage{&animationImage, movieImageProperties, movieImageChildren};

constexpr PropertyForm imageProperties[] = {{"noscale", &boolean}, {"filename", &text}};
constexpr ChildForm imageChildren[] = {{"scale-margins", &margins}, {"attachment-bitmap", &picture}};
constexpr NodeForm image{&elementForm, imageProperties, imageChildren};

constexpr ChildForm textChildren[] = {{"attachment-richtextbuffer", &richText}};
constexpr NodeForm richTextElement{&elementForm, {}, textChildren};

constexpr PropertyForm rowProperties[] = {{"height", &number}, {"content-id", &text}};
constexpr NodeForm row{nullptr, rowProperties, {}};
constexpr ChildForm rowsChildren[] = {{"row", &row, true}};
constexpr NodeForm rows{nullptr, {}, rowsChildren};
constexpr PropertyForm colProperties[] = {
    {"width", &number}, {"visible", &boolean}, {"content-id", &text}, {"name", &text}, {"hidden-by-theme", &boolean}};
constexpr NodeForm col{nullptr, colProperties, {}};
constexpr ChildForm colsChildren[] = {{"col", &col, true}};
constexpr NodeForm cols{nullptr, {}, colsChildren};
constexpr PropertyForm cellProperties[] = {{"margin", &number}, {"content-id", &text}, {"vertical-align", &alignWord}};
constexpr NodeForm cell{nullptr, cellProperties, textChildren};
constexpr ChildForm cellsChildren[] = {{"cell", &cell, true}};
constexpr NodeForm cells{nullptr, {}, cellsChildren};
constexpr ChildForm tableChildren[] = {{"rows", &rows}, {"cols", &cols}, {"cells", &cells}};
constexpr NodeForm table{&elementForm, {}, tableChildren};

constexpr PropertyForm freeFormProperties[] = {{"name", &text}};
constexpr NodeForm freeForm{nullptr, freeFormProperties, mirrorChildren};
constexpr PropertyForm shapeProperties[] = {{"shape", &shapeWord}, {"corner-radius", &number}};
constexpr ChildForm shapeChildren[] = {
    {"gradient", &gradient}, {"brush", &brush}, {"pen", &pen}, {"free-form", &freeForm}};
constexpr NodeForm shape{&elementForm, shapeProperties, shapeChildren};

constexpr PropertyForm elementProperties[] = {
    {"name", &text},         {"coloured", &boolean}, {"mirror-x", &boolean},
    {"mirror-y", &boolean},  {"rotation", &number},  {"visible", &boolean},
    {"modified", &boolean},  {"content-id", &text},  {"content-index", &integer},
    {"text-id", &text},      {"unique", &identity},  {"type", &kindName},
    {"type-name", &kindName}};
constexpr ChildForm elementChildren[] = {{"center", &point}, {"size", &size}, {"tags", &tags}, {"groups", &groups}};

constexpr PropertyForm documentProperties[] = {{"version", &integer}};
constexpr ChildForm documentChildren[] = {{"bounding-box", &rect}, {"content-box", &rect}, {"xdata", &xdata}};

constexpr ElementKind kinds[] = {{"paper", &elementForm, Needs::size},
                                 {"image", &image, Needs::size},
                                 {"text", &richTextElement, Needs::size},
                                 {"text-circle", &richTextElement, Needs::size},
                                 {"table", &table, Needs::height},
                                 {"line", &segment, Needs::nothing},
                                 {"point", &elementForm, Needs::nothing},
                                 {"circle", &figure, Needs::size},
                                 {"rectangle", &figure, Needs::size},
                                 {"shape", &shape, Needs::size},
                                 {"arrow", &segment, Needs::nothing},
                                 {"dimension", &segment, Needs::nothing},
                                 {"dummy", &elementForm, Needs::nothing},
                                 {"state-button", &button, Needs::ownSizeOrNone},
                                 {"mirror", &mirror, Needs::size},
                                 {"label", &label, Needs::nothing},
                                 {"animation", &animationImage, Needs::size, "animation-image"},
                                 {"movie-image", &movieImage, Needs::size, "movie-image", "animation"}};

constexpr std::string_view reservedKinds[] = {"base", "custom"};

// Names are nearly always written as here, and telling two texts apart is quick then.
template <typename Form>
const Form* find(std::span<const Form> forms, std::string_view name) {
  for (const Form& form : forms)
    if (form.name == name) return &form;
  for (const Form& form : forms)
    if (sameName(form.name, name)) return &form;
  return nullptr;
}

}  // namespace

constexpr NodeForm colourForm{nullptr, colourProperties, {}};
constexpr NodeForm skinForm{nullptr, skinProperties, skinChildren};
constexpr NodeForm movieForm{
    .base = nullptr, .properties = movieProperties, .children = movieChildren, .variants = movieVariants};
constexpr NodeForm actionForm{nullptr, actionProperties, {}};
constexpr NodeForm dataForm{nullptr, dataProperties, dataChildren};
constexpr NodeForm documentForm{nullptr, documentProperties, documentChildren, nullptr, true};
constexpr NodeForm elementForm{nullptr, elementProperties, elementChildren};

std::span<const ElementKind> elementKinds() {
  return kinds;
}

std::string_view plainKindOf(std::string_view name) {
  if (name == "skin-button" || sameName(name, "authed-state-button-action")) return "state-button";
  return sameName(name, "animation-image") ? "animation" : name;
}

const ElementKind* findElementKind(std::string_view name) {
  return find(elementKinds(), name);
}

bool isElementNode(std::string_view name) {
  return std::any_of(std::begin(kinds), std::end(kinds),
                     [&](const ElementKind& kind) { return sameName(kind.node, name); });
}

bool isReservedKind(std::string_view name) {
  return std::any_of(std::begin(reservedKinds), std::end(reservedKinds),
                     [&](std::string_view known) { return sameName(known, name); });
}

bool isSkinType(std::string_view type) {
  return std::find(skinTypes.begin(), skinTypes.end(), type) != skinTypes.end();
}

const PropertyForm* findProperty(const NodeForm& form, std::string_view name) {
  const PropertyForm* property = find(form.properties, name);
  return property || !form.base ? property : findProperty(*form.base, name);
}

const ChildForm* findChild(const NodeForm& form, std::string_view name) {
  const ChildForm* child = find(form.children, name);
  if (child && form.exactNames && child->name != name) return nullptr;
  return child || !form.base ? child : findChild(*form.base, name);
}

std::optional<long> numberBehind(std::string_view prefix, std::string_view name) {
  if (name.size() <= prefix.size() || !sameName(name.substr(0, prefix.size()), prefix)) return {};
  const std::string_view digits = name.substr(prefix.size());
  if (digits.size() > 1 && digits.front() == '0') return {};
  long number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || number < 0) return {};
  return number;
}

bool takesAnyChild(const NodeForm& form, std::string_view name) {
  if (!form.anyChild) return false;
  return form.numbered.empty() || numberBehind(form.numbered, name);
}

const NodeForm* findVariant(const NodeForm& form, std::string_view type) {
  for (const Variant& variant : form.variants)
    if (variant.type == type) return variant.form;
  return nullptr;
}

}  // namespace host
