#pragma once

#include "tests/backend_script/Script.h"

/// A library of that name, which the handler finds as long as this object is there: whoever asks the system for a
/// library by a name alone gets the one that is loaded already.
class CScriptedBackend {
public:
  /// All of it, in the state of the beginning.
  CScriptedBackend();
  /// One that lacks a function, "createMessage" for one.
  explicit CScriptedBackend(const char* lacking);
  CScriptedBackend(const CScriptedBackend&) = delete;
  CScriptedBackend& operator=(const CScriptedBackend&) = delete;
  ~CScriptedBackend();

  script::IScript* operator->() const { return script_; }

private:
  void* library_;
  script::IScript* script_;
};
