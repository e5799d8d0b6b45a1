#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvex {

/// What the file holds; nothing where there is none.
[[nodiscard]] inline QByteArray contentsOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A folder of its own for a test, filled by raw paths below it; the folders above an entry are
/// made.
class TemporaryTree {
 public:
  /// `in` is where the folder is made, if it can be.
  explicit TemporaryTree(const QString& in = QDir::tempPath())
      : folder_((QFileInfo(in).isWritable() ? in : QDir::tempPath()) +
                QStringLiteral("/orvex-test-XXXXXX")) {
    EXPECT_TRUE(folder_.isValid());
    // That of the toolkit stops at names that are not UTF-8.
    folder_.setAutoRemove(false);
  }
  ~TemporaryTree() { std::filesystem::remove_all(root().toStdString()); }
  TemporaryTree(const TemporaryTree&) = delete;
  TemporaryTree& operator=(const TemporaryTree&) = delete;

  [[nodiscard]] QByteArray root() const { return QFile::encodeName(folder_.path()); }
  [[nodiscard]] QByteArray path(const QByteArray& below) const { return root() + '/' + below; }
  [[nodiscard]] QString text(const QByteArray& below) const {
    return QString::fromUtf8(path(below));
  }
  [[nodiscard]] QByteArray contents(const QByteArray& below) const {
    return contentsOf(text(below));
  }
  /// Of all that lies in a folder, sorted; names that are not UTF-8 are left out.
  [[nodiscard]] QStringList names(const QByteArray& below) const {
    return QDir(text(below))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
  }

  void folder(const QByteArray& below) const {
    for (qsizetype slash = below.indexOf('/'); slash >= 0; slash = below.indexOf('/', slash + 1))
      ::mkdir(path(below.first(slash)).constData(), 0755);
    ::mkdir(path(below).constData(), 0755);
  }

  void file(const QByteArray& below, const QByteArray& contents = {}) const {
    makeParent(below);
    const int file = ::open(path(below).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    EXPECT_GE(file, 0) << below.constData();
    EXPECT_EQ(::write(file, contents.constData(), static_cast<size_t>(contents.size())),
              contents.size());
    ::close(file);
  }

  void fifo(const QByteArray& below) const {
    makeParent(below);
    EXPECT_EQ(::mkfifo(path(below).constData(), 0644), 0);
  }
  void link(const QByteArray& below, const QByteArray& target) const {
    makeParent(below);
    EXPECT_EQ(::symlink(target.constData(), path(below).constData()), 0);
  }
  /// All that lies in `other`.
  void copyFrom(const TemporaryTree& other) const {
    std::filesystem::copy(other.root().toStdString(), root().toStdString(),
                          std::filesystem::copy_options::recursive);
  }

 private:
  void makeParent(const QByteArray& below) const {
    if (const qsizetype slash = below.lastIndexOf('/'); slash > 0) folder(below.first(slash));
  }

  QTemporaryDir folder_;
};

/// While it lives, this thread and those it starts obey permission bits, which root does not.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const TemporaryTree& tree) {
    ::chmod(tree.root().constData(), 0755);
    if (::geteuid() == 0) ::setfsuid(65534);
  }
  ~OrdinaryUser() { ::setfsuid(::geteuid()); }
};

}  // namespace orvex
