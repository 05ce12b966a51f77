#include "benchmarks/FilterInstance.h"
#include "benchmarks/Ratios.h"
#include "filter/StartUp.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <cairo.h>
#include <wx/image.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace graphics;

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;

/// A soft picture with some noise, as a photograph has.
wxImage Photograph(int width, int height) {
  wxImage image(width, height);
  std::minstd_rand random(7);
  unsigned char* data = image.GetData();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      for (const int channel : {x * 255 / width, y * 255 / height, 128})
        *data++ = static_cast<unsigned char>((static_cast<unsigned>(channel) * 7 + random() % 256) / 8);
  return image;
}

std::string Base64Of(const wxImage& image) {
  wxMemoryOutputStream stream;
  image.SaveFile(stream, wxBITMAP_TYPE_JPEG);
  const auto* start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  return EncodeBase64(std::span(start, static_cast<std::size_t>(stream.GetLength())));
}

struct CPlace {
  double x, y, width, height, rotation;
};

std::string PlaceXml(const CPlace& place) {
  return "<center x=\"" + std::to_string(place.x) + "\" y=\"" + std::to_string(place.y) + "\"/><size width=\"" +
         std::to_string(place.width) + "\" height=\"" + std::to_string(place.height) + "\"/>";
}

std::string Element(const std::string& kind, const std::string& attributes, const CPlace& place,
                    const std::string& content) {
  return "<" + kind + " rotation=\"" + std::to_string(place.rotation) + "\" " + attributes + ">" + PlaceXml(place) +
         content + "</" + kind + ">";
}

std::string ImageXml(const CPlace& place, const std::string& base64) {
  return Element("image", "", place, "<attachment-bitmap extension=\"jpg\">" + base64 + "</attachment-bitmap>");
}

std::string ShapeXml(const CPlace& place) {
  return Element("shape", "shape=\"rounded-rectangle\" corner-radius=\"8\"", place,
                 R"(<brush style="100"><color red="250" green="210" blue="60" alpha="200"/></brush>)"
                 R"(<pen style="100" width="2"><color red="0" green="0" blue="0" alpha="255"/></pen>)");
}

std::string TextXml(const CPlace& place) {
  static const std::string text =
      R"(<?xml version="1.0" encoding="UTF-8"?><richtext version="1.0.0.0"><paragraphlayout><paragraph fontpointsize="12" )"
      R"(fontface="DejaVu Sans" textcolor="#101830"><text>Play the movie</text></paragraph></paragraphlayout></richtext>)";
  static const std::string base64 =
      EncodeBase64(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
  return Element("text", "", place, "<attachment-richtextbuffer>" + base64 + "</attachment-richtextbuffer>");
}

/// A grid of 20 columns, every third place turned.
CPlace PlaceOf(int index) {
  return {48.0 + index % 20 * 96, 40.0 + index / 20 * 72 % 1008, 80, 54, index % 3 == 0 ? 15.0 : 0.0};
}

orlo::P<CGraphicDocument> Load(const std::string& page) {
  const xml::CParsed parsed =
      xml::Parse({reinterpret_cast<const unsigned char*>(page.data()), page.size()}, {256, 1'000'000});
  if (!parsed.document) std::abort();
  auto document = orlo::makeObject<CGraphicDocument>();
  const auto store = orlo::makeObject<CBase64Resources>();
  document->ReadFromXml(*parsed.document->GetRoot(), *store);
  return document;
}

class CSurface {
public:
  CSurface() : bitmap_(MakeAlphaBitmap(kWidth, kHeight)), surface_(bitmap_) {}

  void Paint(CGraphicDocument& document) {
    CBitmapEffectDC dc(bitmap_);
    CPaintContext context(&dc, 0);
    context.rect = context.clip = {0, 0, kWidth, kHeight};
    context.matrix = CMatrix::Identity();
    document.Paint(context);
    dc.Flush();
  }
  cairo_surface_t* Native() const { return surface_.GetNative(); }

private:
  wxBitmap bitmap_;
  CBitmapSurface surface_;
};

/// A bitmap in the size that it is shown in, as a painter that knows its page beforehand would keep it.
class CCachedBitmap {
public:
  CCachedBitmap(CGraphicDocument& document, const CPlace& place, cairo_format_t format)
      : place_(place),
        surface_(cairo_image_surface_create(format, static_cast<int>(place.width), static_cast<int>(place.height))) {
    CSurface page;
    page.Paint(document);
    cairo_t* const context = cairo_create(surface_);
    cairo_set_source_surface(context, page.Native(), place.width / 2 - place.x, place.height / 2 - place.y);
    cairo_paint(context);
    cairo_destroy(context);
    RequireInk();
  }
  ~CCachedBitmap() { cairo_surface_destroy(surface_); }
  CCachedBitmap(const CCachedBitmap&) = delete;
  CCachedBitmap& operator=(const CCachedBitmap&) = delete;

  void Draw(cairo_t* context) const {
    cairo_save(context);
    cairo_translate(context, place_.x, place_.y);
    cairo_rotate(context, place_.rotation * std::numbers::pi / 180);
    cairo_translate(context, -place_.width / 2, -place_.height / 2);
    cairo_set_source_surface(context, surface_, 0, 0);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
    cairo_rectangle(context, 0, 0, place_.width, place_.height);
    cairo_fill(context);
    cairo_restore(context);
  }

private:
  /// Nothing is measured against an empty picture.
  void RequireInk() const {
    cairo_surface_flush(surface_);
    const unsigned char* const data = cairo_image_surface_get_data(surface_);
    const auto size = static_cast<std::size_t>(cairo_image_surface_get_stride(surface_)) *
                      static_cast<std::size_t>(cairo_image_surface_get_height(surface_));
    if (std::none_of(data, data + size, [](unsigned char byte) { return byte != 0; })) std::abort();
  }

  CPlace place_;
  cairo_surface_t* surface_;
};

/// The page once through its document, once as cached bitmaps that bare cairo draws at the same places.
class CPage {
public:
  CPage(int images, int shapes, int texts) {
    const std::string photograph = Base64Of(Photograph(160, 108));
    std::string all;
    for (int i = 0; i < images; ++i)
      Add(all, PlaceOf(i), CAIRO_FORMAT_RGB24, [&](const CPlace& p) { return ImageXml(p, photograph); });
    for (int i = 0; i < shapes; ++i) Add(all, PlaceOf(7 * i), CAIRO_FORMAT_ARGB32, ShapeXml);
    for (int i = 0; i < texts; ++i) Add(all, PlaceOf(11 * i + 3), CAIRO_FORMAT_ARGB32, TextXml);
    document_ = Load(PageOf(all));
  }

  CGraphicDocument& Document() { return *document_; }
  void DrawBare(cairo_surface_t* target) const {
    cairo_t* const context = cairo_create(target);
    for (const auto& bitmap : bitmaps_) bitmap->Draw(context);
    cairo_destroy(context);
    cairo_surface_flush(target);
  }

private:
  template <class Xml>
  void Add(std::string& all, const CPlace& place, cairo_format_t format, Xml xml) {
    all += xml(place);
    CPlace upright = place;
    upright.rotation = 0;
    bitmaps_.push_back(std::make_unique<CCachedBitmap>(*Load(PageOf(xml(upright))), place, format));
  }

  orlo::P<CGraphicDocument> document_;
  std::vector<std::unique_ptr<CCachedBitmap>> bitmaps_;
};

void PaintPage(benchmark::State& state, CPage& page) {
  CSurface surface;
  surface.Paint(page.Document());
  for (auto _ : state) surface.Paint(page.Document());
}

void DrawPage(benchmark::State& state, const CPage& page) {
  const CSurface surface;
  for (auto _ : state) page.DrawBare(surface.Native());
}

CPage& MixedPage() {
  static CPage page(200, 50, 50);
  return page;
}
CPage& ImagePage() {
  static CPage page(200, 0, 0);
  return page;
}
CPage& ShapePage() {
  static CPage page(0, 50, 0);
  return page;
}
CPage& TextPage() {
  static CPage page(0, 0, 50);
  return page;
}

void MixedPageAgain(benchmark::State& state) {
  PaintPage(state, MixedPage());
}
void MixedPageBare(benchmark::State& state) {
  DrawPage(state, MixedPage());
}
void ImagesAgain(benchmark::State& state) {
  PaintPage(state, ImagePage());
}
void ImagesBare(benchmark::State& state) {
  DrawPage(state, ImagePage());
}
void ShapesAgain(benchmark::State& state) {
  PaintPage(state, ShapePage());
}
void ShapesBare(benchmark::State& state) {
  DrawPage(state, ShapePage());
}
void TextsAgain(benchmark::State& state) {
  PaintPage(state, TextPage());
}
void TextsBare(benchmark::State& state) {
  DrawPage(state, TextPage());
}

/// One half-page image below a mirror that shows it again.
constexpr CPlace kHalfPage{960, 270, 1900, 520, 0};

std::string HalfPage() {
  static const std::string image = ImageXml(kHalfPage, Base64Of(Photograph(1900, 520)));
  return image;
}

/// What a mirror repaints at each frame.
void ExclusiveImage(benchmark::State& state) {
  const auto document = Load(PageOf(HalfPage()));
  CSurface surface;
  surface.Paint(*document);
  for (auto _ : state) surface.Paint(*document);
}
void ExclusiveImageBare(benchmark::State& state) {
  const auto document = Load(PageOf(HalfPage()));
  const CCachedBitmap bitmap(*document, kHalfPage, CAIRO_FORMAT_RGB24);
  const CSurface surface;
  for (auto _ : state) {
    cairo_t* const context = cairo_create(surface.Native());
    bitmap.Draw(context);
    cairo_destroy(context);
  }
}

/// A repaint of the whole module, its input included.
void MirroredImage(benchmark::State& state) {
  const std::string mirror = "<mirror>" + PlaceXml({960, 810, 1900, 520, 0}) + "<graphic-document>" + HalfPage() +
                             "</graphic-document></mirror>";
  CFilterInstance filter(PageOf(mirror), kWidth, kHeight);
  filter.Open();
  const std::vector<std::uint8_t> input(std::size_t{4} * kWidth * kHeight, 0x80);
  filter.SetInput(input.data(), 4 * kWidth);
  filter.Frame();
  for (auto _ : state) {
    filter.SetInput(input.data(), 4 * kWidth);
    benchmark::DoNotOptimize(filter.Frame());
  }
}
/// The same pixels: the input, the picture onto a picture of its own, that one flipped and faded onto the page.
void MirroredImageBare(benchmark::State& state) {
  const auto document = Load(PageOf(HalfPage()));
  const CCachedBitmap bitmap(*document, kHalfPage, CAIRO_FORMAT_RGB24);
  const CSurface surface, input;
  cairo_surface_t* const mirrored = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1900, 520);
  cairo_pattern_t* const fade = cairo_pattern_create_linear(0, 550, 0, 1070);
  cairo_pattern_add_color_stop_rgba(fade, 0, 0, 0, 0, 100.0 / 255);
  cairo_pattern_add_color_stop_rgba(fade, 1, 0, 0, 0, 0);
  for (auto _ : state) {
    cairo_t* const picture = cairo_create(mirrored);
    cairo_set_operator(picture, CAIRO_OPERATOR_CLEAR);
    cairo_paint(picture);
    cairo_set_operator(picture, CAIRO_OPERATOR_OVER);
    cairo_translate(picture, -10, -10);
    bitmap.Draw(picture);
    cairo_destroy(picture);
    cairo_t* const page = cairo_create(surface.Native());
    cairo_set_operator(page, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(page, input.Native(), 0, 0);
    cairo_paint(page);
    cairo_set_operator(page, CAIRO_OPERATOR_OVER);
    cairo_translate(page, 10, 1070);
    cairo_scale(page, 1, -1);
    cairo_set_source_surface(page, mirrored, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(page), CAIRO_FILTER_NEAREST);
    // The source stays flipped, the fade lies on the page.
    cairo_identity_matrix(page);
    cairo_mask(page, fade);
    cairo_destroy(page);
  }
  cairo_pattern_destroy(fade);
  cairo_surface_destroy(mirrored);
}

constexpr CPlace kSmallTurned{960, 540, 300, 200, 30};

void LargePictureTurned(benchmark::State& state) {
  const auto document = Load(PageOf(ImageXml(kSmallTurned, Base64Of(Photograph(4000, 3000)))));
  CSurface surface;
  surface.Paint(*document);
  for (auto _ : state) surface.Paint(*document);
}
void SmallPictureTurned(benchmark::State& state) {
  const auto document = Load(PageOf(ImageXml(kSmallTurned, Base64Of(Photograph(300, 200)))));
  CSurface surface;
  surface.Paint(*document);
  for (auto _ : state) surface.Paint(*document);
}
void SmallPictureTurnedBare(benchmark::State& state) {
  CPlace upright = kSmallTurned;
  upright.rotation = 0;
  const auto document = Load(PageOf(ImageXml(upright, Base64Of(Photograph(300, 200)))));
  const CCachedBitmap bitmap(*document, kSmallTurned, CAIRO_FORMAT_RGB24);
  const CSurface surface;
  for (auto _ : state) {
    cairo_t* const context = cairo_create(surface.Native());
    bitmap.Draw(context);
    cairo_destroy(context);
  }
}

BENCHMARK(MixedPageAgain);
BENCHMARK(MixedPageBare);
BENCHMARK(ImagesAgain);
BENCHMARK(ImagesBare);
BENCHMARK(ShapesAgain);
BENCHMARK(ShapesBare);
BENCHMARK(TextsAgain);
BENCHMARK(TextsBare);
BENCHMARK(ExclusiveImage);
BENCHMARK(ExclusiveImageBare);
BENCHMARK(MirroredImage);
BENCHMARK(MirroredImageBare);
BENCHMARK(LargePictureTurned);
BENCHMARK(SmallPictureTurned);
BENCHMARK(SmallPictureTurnedBare);

}  // namespace

int main(int argc, char** argv) {
  const CToolkitLock lock;
  authfilter::StartUp();
  return RunWithRatios(argc, argv,
                       {{"MixedPageAgain", "MixedPageBare", 3.0},
                        {"ImagesAgain", "ImagesBare", 3.0},
                        {"ShapesAgain", "ShapesBare", 3.0},
                        {"TextsAgain", "TextsBare", 3.0},
                        {"ExclusiveImage", "ExclusiveImageBare", 2.0},
                        {"MirroredImage", "MirroredImageBare", 2.0},
                        {"LargePictureTurned", "SmallPictureTurned", 1.0},
                        {"LargePictureTurned", "SmallPictureTurnedBare", 2.0}});
}
