#pragma once

namespace authfilter {

struct CInfoStore;

/// Stores one parameter of an instance. False for an unknown key or a page that is not XML; the instance's lastError
/// then says so.
bool SetParam(CInfoStore& store, const char* key, const char* value);

}  // namespace authfilter
