#include "foundation/posix/MountTable.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <mntent.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace orlo::posix {

namespace {

constexpr std::string_view kRemote[] = {"nfs",   "nfs4",       "cifs",      "smb3",        "smbfs",
                                        "ncpfs", "afs",        "9p",        "ceph",        "coda",
                                        "davfs", "fuse.sshfs", "glusterfs", "fuse.rclone", "fuse.davfs2"};
constexpr std::string_view kDiscs[] = {"iso9660", "udf"};
constexpr std::string_view kMemory[] = {"tmpfs", "ramfs"};
constexpr std::string_view kWithoutDevice[] = {"zfs", "overlay", "virtiofs", "vboxsf", "fuse.bindfs"};
constexpr std::string_view kSystemFolders[] = {"/proc", "/sys", "/dev", "/run", "/boot", "/snap", "/etc"};

template <std::size_t n>
bool isOneOf(const std::string& type, const std::string_view (&types)[n]) {
  return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

/// Where discs and sticks are put below /run/media.
bool isSystemFolder(const std::string& folder) {
  if (folder.starts_with("/run/media/")) return false;
  return std::any_of(std::begin(kSystemFolders), std::end(kSystemFolders), [&](std::string_view system) {
    return folder.starts_with(system) && (folder.size() == system.size() || folder[system.size()] == '/');
  });
}

bool isRemovable(const std::string& device) {
  struct stat status {};
  if (stat(device.c_str(), &status) != 0 || !S_ISBLK(status.st_mode)) return false;
  const std::string folder =
      "/sys/dev/block/" + std::to_string(major(status.st_rdev)) + ":" + std::to_string(minor(status.st_rdev));
  // A partition's disk is the folder above it.
  for (const char* file : {"/removable", "/../removable"}) {
    std::ifstream stream(folder + file);
    if (char flag = '0'; stream >> flag) return flag == '1';
  }
  return false;
}

}  // namespace

std::vector<CMount> readMountTable(const char* file) {
  std::vector<CMount> mounts;
  const std::unique_ptr<FILE, decltype([](FILE* table) { endmntent(table); })> table(setmntent(file, "re"));
  if (!table) return mounts;
  mntent entry{};
  char texts[8192];
  while (getmntent_r(table.get(), &entry, texts, sizeof texts))
    mounts.push_back({entry.mnt_fsname, entry.mnt_dir, entry.mnt_type});
  return mounts;
}

bool isDrive(const CMount& mount) {
  if (mount.folder == "/") return true;
  if (isSystemFolder(mount.folder) || mount.type == "squashfs") return false;
  return mount.source.starts_with("/dev/") || isOneOf(mount.type, kRemote) || isOneOf(mount.type, kMemory) ||
         isOneOf(mount.type, kWithoutDevice);
}

CDrive::Type driveTypeOf(const CMount& mount) {
  if (isOneOf(mount.type, kRemote)) return CDrive::Type::remote;
  if (isOneOf(mount.type, kDiscs)) return CDrive::Type::opticalDisc;
  if (isOneOf(mount.type, kMemory)) return CDrive::Type::memory;
  return isRemovable(mount.source) ? CDrive::Type::removable : CDrive::Type::fixed;
}

}  // namespace orlo::posix
