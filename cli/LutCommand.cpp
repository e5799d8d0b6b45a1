#include "LutCommand.h"

#include "LutRequest.h"
#include "NoLog.h"
#include "Output.h"
#include "base/Bundle.h"
#include "base/FileUrl.h"
#include "base/Text.h"
#include "lut/CloudLUTPreparation.h"
#include "lut/LUTApplyBridge.h"
#include "lut/ManagedLibrary.h"
#include "platform/Platform.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace orvex {
namespace {

ExitCode prepare(const LutRequest& request) {
  try {
    const QUrl copy = CloudLUTPreparation::prepare(
        fileUrl(request.source), fileUrl(request.root),
        fileUrl(request.library.isEmpty() ? ManagedLibrary::userPath() : request.library));
    if (request.json)
      printJson(QJsonDocument(QJsonObject{{QStringLiteral("path"), fileText(copy)}}));
    else
      printLine(fileText(copy));
    return Done;
  } catch (const DescribedError& error) {
    printError(error.description());
    return Failed;
  }
}

// One run of the bridge.
class LutSession final : public QObject {
 public:
  LutSession(const LutRequest& request, Finish finish, QObject& owner)
      : QObject(&owner),
        json_(request.json),
        finish_(std::move(finish)),
        // This program lies in the helper itself, beside the folder of its extensions.
        bridge_({platform_->workspace(), platform_->folderAccess(), log_,
                 Bundle::main().path() +
                     QStringLiteral("/Contents/PlugIns/VantreloOrvexFinalCutExtension.appex")}) {
    connect(&bridge_, &LUTApplyBridge::lastResultChanged, this, &LutSession::report);
    connect(&bridge_, &LUTApplyBridge::failed, this, [this](const QString& description) {
      printError(description);
      finish_(Failed);
    });
    bridge_.apply(fileUrl(request.source), fileUrl(request.root));
  }

 private:
  void report() {
    if (!bridge_.lastResult()) return;
    const bool succeeded = bridge_.lastSucceeded();
    const QString& message = *bridge_.lastResult();
    if (json_)
      printJson(QJsonDocument(QJsonObject{{QStringLiteral("succeeded"), succeeded},
                                          {QStringLiteral("message"), message}}));
    else
      succeeded ? printLine(printable(message)) : printError(message);
    finish_(succeeded ? Done : Failed);
  }

  const bool json_;
  Finish finish_;
  NoLog log_;
  std::unique_ptr<Platform> platform_ = makePlatform();
  LUTApplyBridge bridge_;
};

void runLut(const QStringList& arguments, QObject& owner, const Finish& finish) {
  const auto request = LutRequest::parse(arguments);
  if (!request) {
    printError(request.error());
    return finish(WrongUsage);
  }
  if (request->verb == LutRequest::Verb::Prepare) return finish(prepare(*request));
  new LutSession(*request, finish, owner);
}

}  // namespace

Command lutCommand() {
  return {QStringLiteral("lut"), LutRequest::usage(),
          QStringLiteral("LUT'un yönetilen kopyasını hazırlar; LUT'u kullanımdaki hosta uygular"),
          &runLut};
}

}  // namespace orvex
