#pragma once

#include "engines/AudioUnitRegistry.h"
#include "engines/EngineHealth.h"
#include "engines/EngineRegistry.h"
#include "engines/FolderRegistry.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "host/FinalCutHostAdapter.h"
#include "host/HostSnapshot.h"
#include "services/ReleaseState.h"
#include "services/UniversalPack.h"
#include "shell/OrvexDesktop.h"
#include "shell/OrvexPage.h"
#include "shell/OrvexState.h"
#include "shell/OrvexToast.h"
#include "shell/RequestSubmission.h"

#include <QtQml/qqml.h>

// What QML knows of the core. The core itself does not know QML. Enumerations of value types need a
// name of their own, because a value type's name cannot be used as a scope.
namespace orvex {

struct OrvexStateForeign {
  Q_GADGET
  QML_FOREIGN(orvex::OrvexState)
  QML_NAMED_ELEMENT(OrvexState)
  QML_UNCREATABLE("The controller owns the state.")
};

struct FinalCutHostAdapterForeign {
  Q_GADGET
  QML_FOREIGN(orvex::FinalCutHostAdapter)
  QML_NAMED_ELEMENT(FinalCutHostAdapter)
  QML_UNCREATABLE("The controller owns the host adapter.")
};

struct OrvexDesktopForeign {
  Q_GADGET
  QML_FOREIGN(orvex::OrvexDesktop)
  QML_NAMED_ELEMENT(OrvexDesktop)
  QML_UNCREATABLE("The controller owns the desktop.")
};

struct EngineRegistryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::EngineRegistry)
  QML_NAMED_ELEMENT(EngineRegistry)
  QML_UNCREATABLE("The controller owns the registries.")
};

struct FolderRegistryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::FolderRegistry)
  QML_NAMED_ELEMENT(FolderRegistry)
  QML_UNCREATABLE("The controller owns the registries.")
};

struct MotionTemplateRegistryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::MotionTemplateRegistry)
  QML_NAMED_ELEMENT(MotionTemplateRegistry)
  QML_UNCREATABLE("The controller owns the registries.")
};

struct AudioUnitRegistryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::AudioUnitRegistry)
  QML_NAMED_ELEMENT(AudioUnitRegistry)
  QML_UNCREATABLE("The controller owns the registries.")
};

struct LUTRegistryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::LUTRegistry)
  QML_NAMED_ELEMENT(LUTRegistry)
  QML_UNCREATABLE("The controller owns the registries.")
};

struct FxPlugRegistryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::FxPlugRegistry)
  QML_NAMED_ELEMENT(FxPlugRegistry)
  QML_UNCREATABLE("The controller owns the registries.")
};

struct HostSnapshotForeign {
  Q_GADGET
  QML_FOREIGN(orvex::HostSnapshot)
  QML_VALUE_TYPE(hostSnapshot)
};

struct ReleaseStateForeign {
  Q_GADGET
  QML_FOREIGN(orvex::ReleaseState)
  QML_VALUE_TYPE(releaseState)
};

struct UniversalPackForeign {
  Q_GADGET
  QML_FOREIGN(orvex::UniversalPack)
  QML_VALUE_TYPE(universalPack)
};

struct RequestSubmissionForeign {
  Q_GADGET
  QML_FOREIGN(orvex::RequestSubmission)
  QML_NAMED_ELEMENT(RequestSubmission)
  QML_UNCREATABLE("The state owns it.")
};

struct RequestDraftForeign {
  Q_GADGET
  QML_FOREIGN(orvex::RequestDraft)
  QML_VALUE_TYPE(requestDraft)
};

struct EngineSummaryForeign {
  Q_GADGET
  QML_FOREIGN(orvex::EngineSummary)
  QML_VALUE_TYPE(engineSummary)
};

struct OrvexPageForeign {
  Q_GADGET
  QML_FOREIGN(orvex::OrvexPage)
  QML_VALUE_TYPE(orvexPage)
};

struct OrvexToastForeign {
  Q_GADGET
  QML_FOREIGN(orvex::OrvexToast)
  QML_VALUE_TYPE(orvexToast)
};

/// `EngineHealth.Ready` and so on.
namespace EngineHealthNames {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(orvex)
QML_NAMED_ELEMENT(EngineHealth)
}  // namespace EngineHealthNames

/// `OrvexToast.Success` and so on: to QML, only what begins with a capital is an enumerator.
namespace OrvexToastNames {
Q_NAMESPACE
QML_NAMED_ELEMENT(OrvexToast)
enum Kind {
  Success = static_cast<int>(OrvexToast::Kind::success),
  Error = static_cast<int>(OrvexToast::Kind::error),
  Info = static_cast<int>(OrvexToast::Kind::info),
};
Q_ENUM_NS(Kind)
}  // namespace OrvexToastNames

}  // namespace orvex
