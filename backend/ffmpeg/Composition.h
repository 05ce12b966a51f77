#pragma once

#include "backend/ffmpeg/MovieStore.h"
#include "backend/ffmpeg/Visual.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vantra::ffmpeg {

/// Visuals over one another, each in its place and its time.
class CComposition : public IVisual {
public:
  struct CPart {
    std::unique_ptr<IVisual> visual;
    /// In pixels of the composition. Without a width or a height it is that of the visual; without any of the four the
    /// visual is fitted into the whole.
    CBox place;
    double start = 0;
    /// 0 or less for as long as the visual lasts.
    double duration = 0;
    /// Lasts as long as the others do.
    bool isBackground = false;
  };

  /// 0 or less for as long as the parts last.
  explicit CComposition(double duration = 0) : duration_(duration) {}

  /// All parts are there before anything is asked.
  void Add(CPart part) { parts_.push_back(std::move(part)); }
  bool IsEmpty() const { return parts_.empty(); }
  /// Else it is that of the lowest part that fills the whole, or what holds all places.
  void SetSize(const CSize& size) { size_ = size; }

  CSize GetSize() const override;
  double GetDuration() const override;
  void Place(const CBox& place, const CPixelBox& visible) override;
  void See(double seconds, std::vector<CSeen>& seen) override;

private:
  CSize FindSize() const;
  double FindDuration() const;

  double duration_;
  CSize size_;
  std::vector<CPart> parts_;
  /// Found once: asking the parts again at each level would take twice as long for each of them.
  mutable std::optional<CSize> knownSize_;
  mutable std::optional<double> knownDuration_;
};

/// Shows a visual again and again.
class CRepeated : public IVisual {
public:
  explicit CRepeated(std::unique_ptr<IVisual> visual) : visual_(std::move(visual)) {}

  CSize GetSize() const override { return visual_->GetSize(); }
  double GetDuration() const override;
  void Place(const CBox& place, const CPixelBox& visible) override { visual_->Place(place, visible); }
  void See(double seconds, std::vector<CSeen>& seen) override;

private:
  std::unique_ptr<IVisual> visual_;
};

/// Fills its place with a colour: the bytes B, G, R, A, premultiplied.
class CColourField : public IVisual, public ILeaf {
public:
  /// The store lives as long.
  CColourField(CMovieStore& store, const std::array<std::uint8_t, 4>& pixel) : store_(store), pixel_(pixel) {}

  CSize GetSize() const override { return {}; }
  double GetDuration() const override;
  void Place(const CBox& place, const CPixelBox& visible) override;
  void See(double seconds, std::vector<CSeen>& seen) override;

  void Request(double, double) override {}
  void Expect(double, double) override {}
  CLayer Show(double, double) override { return layer_; }
  void Tidy() override {}
  void Wake() override {}

private:
  CMovieStore& store_;
  std::array<std::uint8_t, 4> pixel_;
  CLayer layer_;
};

}  // namespace vantra::ffmpeg
