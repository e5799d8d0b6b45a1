#pragma once

#include "platform/FolderAccess.h"
#include "platform/linux/PortalChooser.h"

namespace orvex {

/// Grants on a system whose own rights decide what the panel may read: the memory of a choice.
class LinuxFolderGrants final : public FolderGrants {
 public:
  [[nodiscard]] QByteArray makeGrant(const QUrl& folder) override;
  [[nodiscard]] Resolved resolveGrant(const QByteArray& grant) override;
};

/// Folders on such a system: using one needs no bracket.
class LinuxFolderAccess final : public FolderAccess {
 public:
  /// Both outlive this.
  LinuxFolderAccess(SessionBus& bus, SystemLog& log) : chooser_(bus, log) {}

  /// See `PortalChooser::setFallbackChooser`.
  void setFallbackChooser(FolderChooser* chooser) { chooser_.setFallbackChooser(chooser); }

  void chooseFolder(const QString& title, const QString& prompt, const QUrl& start,
                    std::function<void(std::optional<QUrl>)> chosen) override;
  [[nodiscard]] std::shared_ptr<FolderGrants> grants() override { return grants_; }
  [[nodiscard]] bool startAccess(const QUrl&) override { return false; }
  void stopAccess(const QUrl&) override {}

 private:
  PortalChooser chooser_;
  const std::shared_ptr<FolderGrants> grants_ = std::make_shared<LinuxFolderGrants>();
};

}  // namespace orvex
