#pragma once

#include "platform/FolderAccess.h"
#include "platform/SystemLog.h"

namespace orvex {

/// Folders that nobody is asked for and that are open to everybody, and a log that nobody reads.
class OpenAccess final : public FolderAccess, public FolderGrants, public SystemLog {
 public:
  void chooseFolder(const QString&, const QString&, const QUrl&,
                    std::function<void(std::optional<QUrl>)>) override {}
  std::shared_ptr<FolderGrants> grants() override { return {std::shared_ptr<void>(), this}; }
  QByteArray makeGrant(const QUrl& folder) override { return folder.toEncoded(); }
  Resolved resolveGrant(const QByteArray& grant) override {
    return {QUrl::fromEncoded(grant), false};
  }
  bool startAccess(const QUrl&) override { return false; }
  void stopAccess(const QUrl&) override {}
  void line(const QString&) override {}
};

}  // namespace orvex
