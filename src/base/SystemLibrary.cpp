#include "base/SystemLibrary.h"

#include "base/DescribedError.h"

namespace orvex {

SystemLibrary::SystemLibrary(const char* name, int version)
    : library_(QString::fromLatin1(name), version) {
  // The toolkit would let go of it when the program ends, under threads that were left behind in
  // it.
  library_.setLoadHints(QLibrary::PreventUnloadHint);
  if (!library_.load())
    throw DescribedError(
        QStringLiteral("Sistemin lib%1 kitaplığı (sürüm %2) yüklenemedi: %3. Kitaplığı kur.")
            .arg(QString::fromLatin1(name))
            .arg(version)
            .arg(library_.errorString()));
}

QFunctionPointer SystemLibrary::resolved(const char* name) {
  if (const QFunctionPointer found = library_.resolve(name)) return found;
  throw DescribedError(QStringLiteral("%1 içinde %2 yok. Kitaplığın yeni bir sürümünü kur.")
                           .arg(library_.fileName(), QString::fromLatin1(name)));
}

}  // namespace orvex
