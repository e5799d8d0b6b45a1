#pragma once

#include "base/Background.h"

#include <QByteArrayList>
#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// Goes from folder to folder, one being shown at a time. Folders are read on a thread of their
/// own, as they may hang where the network does; until one is read, the one before it stays shown.
/// Names are kept as the file system's raw bytes: what cannot be written as text is entered all the
/// same.
class FolderBrowser : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Who asks for a folder owns it.")

  /// The folder shown as a person reads it; empty until the first is read.
  Q_PROPERTY(QString path READ path NOTIFY shown FINAL)
  /// Those of its folders that are not hidden, in the user's order, links to folders among them.
  Q_PROPERTY(QStringList names READ names NOTIFY shown FINAL)
  /// The row of `names` that the way led up from; 0 for every other way.
  Q_PROPERTY(int row READ row NOTIFY shown FINAL)
  /// Why its folders are not known, in Turkish; empty when they are.
  Q_PROPERTY(QString unreadable READ unreadable NOTIFY shown FINAL)
  /// Another folder is being read.
  Q_PROPERTY(bool reading READ isReading NOTIFY readingChanged FINAL)

 public:
  /// Shows `start`; where that is no folder any more, the user's home.
  void begin(const QUrl& start);
  /// Shows the folder in a row of `names`.
  Q_INVOKABLE void enter(int row);
  /// Shows the folder that this one lies in.
  Q_INVOKABLE void leave();
  /// Shows the folder at a path that was written: from the top, from the home after "~", or from
  /// the folder shown.
  Q_INVOKABLE void go(const QString& path);

  /// A local file URL without a trailing slash; empty until the first is read.
  [[nodiscard]] QUrl folder() const;
  [[nodiscard]] QString path() const;
  [[nodiscard]] const QStringList& names() const noexcept { return shown_.texts; }
  [[nodiscard]] int row() const noexcept { return shown_.row; }
  [[nodiscard]] const QString& unreadable() const noexcept { return shown_.unreadable; }
  [[nodiscard]] bool isReading() const noexcept { return reading_.isRunning(); }

 Q_SIGNALS:
  /// Also when it is the same folder, read anew.
  void shown();
  void readingChanged();
  /// What was asked for is no folder, as `reason` says in Turkish: nothing changes.
  void refused(const QString& reason);

 private:
  struct Shown {
    QByteArray path{};
    // The raw names, and what they read.
    QByteArrayList names{};
    QStringList texts{};
    int row = 0;
    QString unreadable{};
  };

  // The first of `paths` that is a folder, with the row of the folder named `from`.
  void show(const QByteArrayList& paths, const QByteArray& from = {});
  [[nodiscard]] static Shown read(const QByteArray& path, const QByteArray& from,
                                  const std::stop_token& stop);

  Background reading_{Background::Priority::Equal};
  Shown shown_;
};

}  // namespace orvex
