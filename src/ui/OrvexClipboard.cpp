#include "ui/OrvexClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace orvex {

OrvexClipboard::OrvexClipboard(QObject* parent) : QObject(parent) {
  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
          &OrvexClipboard::textChanged);
}

QString OrvexClipboard::text() {
  return QGuiApplication::clipboard()->text();
}

void OrvexClipboard::setText(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace orvex
