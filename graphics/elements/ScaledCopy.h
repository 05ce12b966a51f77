#pragma once

#include <wx/bitmap.h>

#include <cstddef>

namespace graphics {

/// All scaled copies of a process together, in bytes.
constexpr std::size_t kScaledCopyBudget = std::size_t{256} << 20;

/// A scaled copy of a picture that a painter keeps. A new one that does not fit into the budget takes the room of
/// those that were used least recently; these become bitmaps that are not ok. To be made, used and destroyed with the
/// toolkit's lock held.
class CScaledCopy : public wxBitmap {
public:
  /// The bitmap must have been made for this copy alone.
  explicit CScaledCopy(const wxBitmap& bitmap);
  CScaledCopy(const CScaledCopy&) = delete;
  CScaledCopy& operator=(const CScaledCopy&) = delete;
  ~CScaledCopy() override;

  /// To be called at each use.
  void Touch();

  static std::size_t BytesInUse();

private:
  void Link();
  void Unlink();
  void GiveUp();

  std::size_t bytes_;
  CScaledCopy* older_ = nullptr;
  CScaledCopy* newer_ = nullptr;
};

}  // namespace graphics
