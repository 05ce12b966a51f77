#pragma once

namespace authfilter {

struct CInfoStore;

/// Lets the pictures and texts of an instance's page come from the zip archive that a URI or a path names, no longer
/// from a former one. An archive that is missing or damaged has no files.
void SetAttachments(CInfoStore& store, const char* uri);

}  // namespace authfilter
