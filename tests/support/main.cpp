// The main program of every test: an application object for what needs one, and a failure for every
// warning that a test did not announce.
#include "support/Warnings.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

QStringList g_expected;

void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  for (qsizetype i = 0; i < g_expected.size(); ++i) {
    if (text.contains(g_expected[i])) {
      g_expected.removeAt(i);
      return;
    }
  }
  ADD_FAILURE() << "unexpected warning: " << qPrintable(text);
}

class WarningListener : public testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo&) override {
    for (const QString& text : std::as_const(g_expected))
      ADD_FAILURE() << "warning did not come: " << qPrintable(text);
    g_expected.clear();
  }
};

}  // namespace

void orvex::expectWarning(const QString& fragment) {
  g_expected.append(fragment);
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  qInstallMessageHandler(handleMessage);
  testing::UnitTest::GetInstance()->listeners().Append(new WarningListener);
  return RUN_ALL_TESTS();
}
