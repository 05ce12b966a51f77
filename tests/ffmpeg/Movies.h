#pragma once

#include <string>

/// Makes a file in the folder of movies with a command of a shell, unless it is there: in it "$out" is the file. Empty
/// if the command fails, as it does without the encoder that it asks for.
std::string MadeBy(const std::string& name, const std::string& command);
/// By the ffmpeg command, from these arguments.
std::string Movie(const std::string& name, const std::string& arguments);

/// An input for the ffmpeg command whose pictures show their numbers from 0 to 255 in blocks, 160 x 96 pixels.
std::string NumberedFrames(const std::string& rate, int count);

/// The text of a file, and a new file of a text.
std::string BytesOf(const std::string& path);
std::string Written(const std::string& name, const std::string& bytes);

std::string UriOf(const std::string& path);

/// Infiles. A track's attributes and an item's come as they stand in the XML.
std::string Infile(const std::string& tracks, const std::string& attributes = {});
std::string Track(const std::string& item, const std::string& attributes = {});
std::string Video(const std::string& path, const std::string& attributes = {}, const std::string& children = {});
/// Of one movie in its whole.
std::string InfileOf(const std::string& path, const std::string& attributes = {}, const std::string& children = {});

#define SKIP_WITHOUT(path) \
  if ((path).empty()) GTEST_SKIP() << "The ffmpeg command of this machine can't make " #path
