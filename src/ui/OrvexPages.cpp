#include "ui/OrvexPages.h"

namespace orvex {

OrvexPage OrvexPages::byId(const QString& id) {
  return OrvexPage::fromRawValue(id).value_or(OrvexPage());
}

int OrvexPages::indexOf(OrvexPage page) {
  return static_cast<int>(OrvexPage::allCases().indexOf(page));
}

}  // namespace orvex
