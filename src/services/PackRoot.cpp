#include "services/PackRoot.h"

#include "base/FileError.h"
#include "services/PackNames.h"

namespace orvex {
namespace {

using Role = HiddenPackName::Role;

// Folders of live installs are locked by them. What is no folder is nobody's.
bool isLive(const Directory& root, const QByteArray& staging) {
  try {
    return !FolderLock::attempt(root.folder(staging));
  } catch (const FileError& error) {
    return error.code() != ENOTDIR && error.code() != ELOOP;
  }
}

}  // namespace

PackRoot::PackRoot(const Directory& folder, const std::stop_token& stop)
    : folder_(folder), lock_(folder, stop) {
  sweep();
}

void PackRoot::sweep() const {
  for (const QByteArray& name : folder_.names()) {
    const auto hidden = HiddenPackName::parse(name);
    if (!hidden) continue;
    try {
      if (hidden->role == Role::Aside && !folder_.has(hidden->id))
        folder_.rename(name, hidden->id);
      else if (hidden->role == Role::Aside || !isLive(folder_, name))
        folder_.remove(name);
    } catch (const FileError&) {
      // What cannot be cleared up is out of sight and in nobody's way.
    }
  }
}

void PackRoot::publish(const QByteArray& hidden, const QByteArray& id) const {
  const bool isNew = !folder_.has(id);
  put(hidden, id);
  try {
    folder_.sync();
  } catch (const FileError&) {
    if (isNew)
      folder_.rename(id, hidden);
    else
      put(hidden, id);
    throw;
  }
}

void PackRoot::withdraw(const QByteArray& id, const QByteArray& hidden) const {
  folder_.rename(id, hidden);
  try {
    folder_.sync();
  } catch (const FileError&) {
    folder_.rename(hidden, id);
    throw;
  }
}

void PackRoot::put(const QByteArray& hidden, const QByteArray& id) const {
  if (!folder_.has(id)) return folder_.rename(hidden, id);
  if (folder_.exchange(hidden, id)) return;
  // For a moment nobody sees a pack here; should it be the last one of this process, the next one
  // brings the old one back.
  const QByteArray aside = HiddenPackName{id, Role::Aside}.make();
  folder_.rename(id, aside);
  try {
    folder_.rename(hidden, id);
    folder_.rename(aside, hidden);
  } catch (const FileError&) {
    if (!folder_.has(hidden)) folder_.rename(id, hidden);
    folder_.rename(aside, id);
    throw;
  }
}

}  // namespace orvex
