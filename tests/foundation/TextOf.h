#pragma once

#include "foundation/Error.h"

#include <string>

/// Texts as the test framework shows them.
inline std::string textOf(const orlo::String& text) {
  return text.isNull() ? "(null)" : orlo::toStdString(text);
}

inline std::string messageOf(const orlo::CException& error) {
  return textOf(error.getMessage());
}

inline std::string titleOf(const orlo::CException& error) {
  return textOf(error.getTitle());
}
