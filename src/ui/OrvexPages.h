#pragma once

#include "shell/OrvexPage.h"

#include <QObject>
#include <QtQml/qqml.h>

namespace orvex {

struct OrvexPageListForeign {
  Q_GADGET
  QML_FOREIGN(QList<orvex::OrvexPage>)
  QML_ANONYMOUS
  QML_SEQUENTIAL_CONTAINER(orvex::OrvexPage)
};

/// The pages of the panel, for QML.
class OrvexPages : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  /// In navigation order.
  Q_PROPERTY(QList<orvex::OrvexPage> all READ all CONSTANT FINAL)

 public:
  using QObject::QObject;

  [[nodiscard]] static QList<OrvexPage> all() { return OrvexPage::allCases(); }
  /// The page of the identifier `id`, or the first page when there is none.
  Q_INVOKABLE [[nodiscard]] static orvex::OrvexPage byId(const QString& id);
  /// The position of `page` in `all`.
  Q_INVOKABLE [[nodiscard]] static int indexOf(orvex::OrvexPage page);
};

}  // namespace orvex
