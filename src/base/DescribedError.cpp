#include "base/DescribedError.h"

namespace orvex {

QString descriptionOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const DescribedError& error) {
    return error.description();
  } catch (const std::exception& error) {
    return QStringLiteral("Beklenmeyen bir hata oluştu (%1). Yeniden dene.")
        .arg(QString::fromUtf8(error.what()));
  }
}

}  // namespace orvex
