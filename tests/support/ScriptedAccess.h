#pragma once

#include "base/DescribedError.h"
#include "platform/FolderAccess.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <QThread>

namespace orvex {

/// Folder access as a test writes it: a grant is the folder's URL as text, the user answers when
/// the test says so. Grants are looked into anywhere but on the thread of the window.
struct ScriptedAccess final : FolderAccess, FolderGrants {
  void chooseFolder(const QString& title, const QString& prompt, const QUrl& start,
                    std::function<void(std::optional<QUrl>)> chosen) override {
    asked.append(title + u'|' + prompt + start.path());
    pending = std::move(chosen);
  }
  void answer(const std::optional<QUrl>& folder) { std::exchange(pending, nullptr)(folder); }

  std::shared_ptr<FolderGrants> grants() override { return {std::shared_ptr<void>(), this}; }
  QByteArray makeGrant(const QUrl& folder) override {
    expectWorker();
    if (!canGrant) throw DescribedError(QStringLiteral("no grant"));
    if (QFileInfo(folder.toLocalFile()).isFile())
      throw DescribedError(QStringLiteral("a file is no folder."));
    return "grant:" + folder.toEncoded();
  }
  Resolved resolveGrant(const QByteArray& grant) override {
    expectWorker();
    const QByteArray prefix = stale ? "stale:" : "grant:";
    if (!grant.startsWith(prefix)) throw DescribedError(QStringLiteral("no such grant"));
    return {QUrl::fromEncoded(grant.sliced(prefix.size())), stale};
  }
  bool startAccess(const QUrl& folder) override {
    used.append(folder);
    everUsed.append(folder);
    return true;
  }
  void stopAccess(const QUrl& folder) override {
    if (!used.removeOne(folder)) stoppedUnused = true;
  }

  QStringList asked;
  std::function<void(std::optional<QUrl>)> pending;
  bool canGrant = true;
  bool stale = false;
  /// What is being used now.
  QList<QUrl> used;
  QList<QUrl> everUsed;
  bool stoppedUnused = false;

 private:
  static void expectWorker() {
    if (QThread::currentThread() == QCoreApplication::instance()->thread())
      qWarning("a grant is looked into on the window's thread");
  }
};

}  // namespace orvex
