#pragma once

#include "tests/host/Command.h"

#include <string>
#include <vector>

// Pages, clips and pictures for the tests, and what has become of them, by way of the ffmpeg command.
namespace test {

// A page of 16 : 9 with these elements.
std::string page(const std::string& elements = {});
// A folder that has an empty page in "page.xml".
class PageFolder : public Folder {
public:
  PageFolder() { write("page.xml", page()); }
};

// Makes a file by ffmpeg, from arguments that name everything but the file.
void makeMedia(const Folder& folder, const std::string& arguments, const std::string& name);

// A property of the first video stream as ffprobe tells it, "width" say; "nb_read_frames" counts by decoding.
std::string probe(const Folder& folder, const std::string& name, const std::string& property);

// All pictures of a file as bytes in that pixel format, "bgra" say.
std::string decode(const Folder& folder, const std::string& name, const std::string& format);

// That many times a text.
std::string repeat(const std::string& text, std::size_t times);

// The largest difference of two bytes at the same place, 256 for texts of different lengths.
int largestDifference(const std::string& a, const std::string& b);

}  // namespace test
