#pragma once

#include "base/Directory.h"

namespace orvex {

/// The user's managed LUTs, and the place where panel and helper leave each other files:
///
///   <library>/<SHA-256>/<name>.cube               copies of LUTs, see `CloudLUTPreparation`
///   <library>/Bridge Requests/request-<UUID>.plist what the panel asks for
///   <library>/apply-result-<UUID>.plist            what the helper answers
namespace ManagedLibrary {

/// The absolute path of the library, which need not be there, in `userDataFolder`, which is made
/// where it is missing. Throws `FileError`.
[[nodiscard]] QByteArray userPath();
/// The folder of the requests in `library`, made where it is missing; the user's alone.
[[nodiscard]] Directory requests(const Directory& library);
/// Whether `name` is that of a request, in whatever letters its extension is written.
[[nodiscard]] bool isRequestName(QByteArrayView name);
/// Names for one exchange, which no other has.
[[nodiscard]] QByteArray newRequestName();
[[nodiscard]] QByteArray newReplyName();
/// Whether a reply may be written under `name`.
[[nodiscard]] bool isReplyName(QByteArrayView name);

}  // namespace ManagedLibrary
}  // namespace orvex
