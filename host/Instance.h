#pragma once

#include "host/Picture.h"
#include "host/Size.h"

#include <string>

namespace host {

// One instance of the module. What the module throws leaves these operations as it is.
class Instance {
public:
  Instance();
  ~Instance();
  Instance(const Instance&) = delete;
  Instance& operator=(const Instance&) = delete;

  // False with the module's message in lastError().
  bool set(const std::string& key, const std::string& value);
  std::string lastError() const;

  void open();
  // The pixels are read at each frame until the next call.
  void setInput(const PictureView& picture);
  void nextFrame();

  // The present frame, readable as long as this object lives.
  class Frame {
  public:
    Frame(Instance& instance, Size size);
    ~Frame();
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    const PictureView& view() const { return view_; }

  private:
    void* handle_;
    PictureView view_;
  };

private:
  void* handle_ = nullptr;
};

}  // namespace host
