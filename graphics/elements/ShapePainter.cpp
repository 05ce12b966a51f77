#include "graphics/elements/ShapePainter.h"

#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/geometry/Angles.h"
#include "graphics/geometry/GreyColour.h"
#include "graphics/paint/PixelRange.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace graphics {

namespace {

constexpr double kInchesPerMillimetre = 0.0393700787;
constexpr int kWidestPen = 65535;
/// The graphics library loses slanted edges that are longer than a quarter of a million pixels.
constexpr double kFarthestOutline = 100'000;

double ToNearOutline(double coordinate) {
  return std::isnan(coordinate) ? 0.0 : std::clamp(coordinate, -kFarthestOutline, kFarthestOutline);
}

struct CSpan {
  double start, length;
};

CSpan NearSpan(double start, double length) {
  const double a = ToNearOutline(start);
  const double b = ToNearOutline(start + length);
  return {std::min(a, b), std::abs(b - a)};
}

CSpan WholePixels(CSpan span) {
  const double start = std::round(span.start);
  const double length = std::round(span.start + span.length) - start;
  // What is thinner than a pixel is seen all the same.
  return {start, span.length > 0.0 ? std::max(length, 1.0) : 0.0};
}

CSpan MiddleOfPixels(CSpan span) {
  return {span.start + 0.5, std::max(span.length - 1.0, 0.0)};
}

/// Turned by a right angle about its middle.
CDoubleRect Turned(const CDoubleRect& rect) {
  return CDoubleRect::FromCenter(rect.GetCenter(), {rect.height, rect.width});
}

wxColour Shown(const wxColour& colour, bool coloured) {
  if (!colour.IsOk()) return wxTransparentColour;
  return coloured ? colour : GreyOfShape(colour);
}

double LengthOf(const std::vector<wxPoint2DDouble>& points) {
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) length += points[i].GetDistance(points[i - 1]);
  return length;
}

}  // namespace

CDoubleRect FrameOfOutline(const CDoubleRect& frame, double rotation, bool oddPen) {
  constexpr double kSmallestRotation = 0.001;
  CSpan x = NearSpan(frame.left, frame.width);
  CSpan y = NearSpan(frame.top, frame.height);
  const bool upright = IsZero(std::remainder(rotation, 90.0), kSmallestRotation);
  const bool lying = upright && !IsZero(std::remainder(rotation, 180.0), kSmallestRotation);
  if (lying) {
    const CDoubleRect turned = Turned({x.start, y.start, x.length, y.length});
    x = {turned.left, turned.width};
    y = {turned.top, turned.height};
  }
  if (upright) {
    x = WholePixels(x);
    y = WholePixels(y);
  }
  if (oddPen) {
    x = MiddleOfPixels(x);
    y = MiddleOfPixels(y);
  }
  const CDoubleRect outline{x.start, y.start, x.length, y.length};
  return lying ? Turned(outline) : outline;
}

CShapePainter::CShapePainter(const CGraphicShape& shape, CPaintContext& context)
    : shape_(shape), context_(context), dc_(*context.dc) {
  dc_.SetFontCaching(true);
}

void CShapePainter::Paint() {
  if (!dc_.GetGraphicsContext()) return;
  // The outline finds the pixels itself, whichever way it is turned.
  wxGraphicsContext& graphics = *dc_.GetGraphicsContext();
  graphics.EnableOffset(false);
  const auto effects = dc_.CreateEffectContext();

  dc_.SetPen(DevicePen());
  const bool oddPen = !dc_.GetPen().IsTransparent() && dc_.GetPen().GetWidth() % 2 != 0;
  rect_ = FrameOfOutline(context_.matrix.MapRect(FrameOf(shape_)), shape_.GetRotation(), oddPen);
  effects->SetTransform(TurnedAbout(*effects, rect_.GetCenter(), shape_));

  SetBrush();
  SolidIfLong(2 * (rect_.width + rect_.height));
  switch (shape_.GetShapeType()) {
    case ShapeType::kRectangle:
      graphics.DrawRectangle(rect_.left, rect_.top, rect_.width, rect_.height);
      break;
    case ShapeType::kRoundedRectangle:
      graphics.DrawRoundedRectangle(rect_.left, rect_.top, rect_.width, rect_.height, CornerRadius());
      break;
    case ShapeType::kEllipse:
      graphics.DrawEllipse(rect_.left, rect_.top, rect_.width, rect_.height);
      break;
    case ShapeType::kFreeForm:
      DrawFreeForm(graphics);
      break;
    default:
      break;
  }
  dc_.Flush();
}

wxPen CShapePainter::DevicePen() const {
  constexpr double kOwnWidth = 0.0001;
  wxPen pen(shape_.GetPen().IsOk() ? shape_.GetPen() : *wxTRANSPARENT_PEN);
  const double wanted = std::floor(dc_.GetPPI().x * kInchesPerMillimetre * shape_.GetLineWidth());
  const int width = IsZero(shape_.GetLineWidth(), kOwnWidth) ? pen.GetWidth() : TruncateToInt(wanted);
  // No outline is thinner than a pixel.
  pen.SetWidth(std::clamp(width, 1, kWidestPen));
  pen.SetColour(Shown(pen.GetColour(), shape_.IsColoured()));
  return pen;
}

void CShapePainter::SetBrush() {
  const CGradient& gradient = shape_.GetGradient();
  if (!gradient.ok) {
    wxBrush brush(shape_.GetBrush().IsOk() ? shape_.GetBrush() : *wxTRANSPARENT_BRUSH);
    brush.SetColour(Shown(brush.GetColour(), shape_.IsColoured()));
    dc_.SetBrush(brush);
    return;
  }
  const wxColour start = Shown(gradient.start, shape_.IsColoured());
  const wxColour end = Shown(gradient.end, shape_.IsColoured());
  dc_.SetBrush(wxBrush(start));
  // What the effects make of a plain colour holds for two of them as well.
  if (dc_.HasFixedBrush() || dc_.IsAlphaMask()) return;
  wxGraphicsContext& graphics = *dc_.GetGraphicsContext();
  graphics.SetBrush(
      graphics.CreateLinearGradientBrush(rect_.left, rect_.top, rect_.left + rect_.width, rect_.top, start, end));
}

void CShapePainter::SolidIfLong(double length) {
  wxPen pen = dc_.GetPen();
  if (length <= kLongestDashed || pen.IsTransparent() || pen.GetStyle() == wxPENSTYLE_SOLID) return;
  pen.SetStyle(wxPENSTYLE_SOLID);
  dc_.GetGraphicsContext()->SetPen(pen);
}

double CShapePainter::CornerRadius() const {
  const double wanted = shape_.GetCornerRadius() * (context_.matrix.GetScaleX() + context_.matrix.GetScaleY()) * 0.5;
  const double largest = std::min(rect_.width, rect_.height) * 0.5;
  return wanted > 0.0 ? std::min(wanted, largest) : 0.0;
}

std::vector<wxPoint2DDouble> CShapePainter::FreeFormPoints() const {
  const CDoubleRect bounds = shape_.GetFreeForm()->GetDocument()->GetBoundingBox();
  const double fx = rect_.width / bounds.width;
  const double fy = rect_.height / bounds.height;
  if (!std::isfinite(fx) || !std::isfinite(fy)) return {};
  const CDoublePoint centre = rect_.GetCenter();
  std::vector<wxPoint2DDouble> points;
  for (const CDoublePoint& point : shape_.GetFreeForm()->GetOutline())
    points.emplace_back(ToNearOutline(point.x * fx + centre.x), ToNearOutline(point.y * fy + centre.y));
  return points;
}

void CShapePainter::DrawFreeForm(wxGraphicsContext& graphics) {
  if (!shape_.GetFreeForm()) return;
  const std::vector<wxPoint2DDouble> points = FreeFormPoints();
  if (points.empty()) return;
  SolidIfLong(LengthOf(points));
  wxGraphicsPath path = graphics.CreatePath();
  path.MoveToPoint(points.front());
  for (std::size_t i = 1; i < points.size(); ++i) path.AddLineToPoint(points[i]);
  // Only so the outline gets a corner where it ends.
  if (points.size() > 1 && points.front() == points.back()) path.CloseSubpath();
  graphics.DrawPath(path);
}

}  // namespace graphics
