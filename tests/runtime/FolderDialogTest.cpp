#include "runtime/QuickFolderChooser.h"
#include "support/RecordedDesktop.h"
#include "support/Wait.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <gtest/gtest.h>

using namespace orvex;

namespace {

QQuickItem* itemWithText(QQuickItem* root, const QString& text) {
  for (QQuickItem* child : root->childItems()) {
    if (child->isVisible() && child->property("text").toString() == text &&
        child->metaObject()->indexOfSignal("clicked()") >= 0)
      return child;
    if (QQuickItem* found = itemWithText(child, text)) return found;
  }
  return nullptr;
}

class FolderDialogs : public testing::Test {
 protected:
  void SetUp() override {
    window_.resize(800, 600);
    window_.show();
  }
  // Asks for a folder; the button that accepts the dialog's.
  [[nodiscard]] QQuickItem* opened() {
    chooser_->choose(u"LUT klasörünü seç"_qs, u"Seç"_qs, [this](const std::optional<QUrl>& url) {
      answers_.append(url ? url->toLocalFile() : u"nothing"_qs);
    });
    EXPECT_TRUE(answers_.isEmpty());
    QQuickItem* found = nullptr;
    EXPECT_TRUE(waitUntil([&] {
      found = itemWithText(window_.contentItem(), u"Seç"_qs);
      return found != nullptr && found->isEnabled();
    }));
    return found;
  }
  [[nodiscard]] QString answer() {
    EXPECT_TRUE(waitUntil([this] { return !answers_.isEmpty(); }));
    return answers_.isEmpty() ? QString() : answers_.takeFirst();
  }

  QQmlEngine engine_;
  QQuickWindow window_;
  RecordedDesktop log_;
  std::unique_ptr<QuickFolderChooser> chooser_ =
      std::make_unique<QuickFolderChooser>(engine_, window_, log_);
  QStringList answers_;
};

TEST_F(FolderDialogs, AnswerTheAcceptedFolderAndNothingWhenCancelled) {
  QMetaObject::invokeMethod(opened(), "clicked");
  const QString folder = answer();
  EXPECT_TRUE(QFileInfo(folder).isDir() && !folder.endsWith(u'/')) << qPrintable(folder);

  ASSERT_TRUE(opened());
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&window_, &escape);
  EXPECT_EQ(answer(), u"nothing");

  ASSERT_TRUE(opened());
  chooser_.reset();
  EXPECT_FALSE(waitUntil([this] { return !answers_.isEmpty(); }, std::chrono::milliseconds(50)));
  EXPECT_TRUE(log_.lines.isEmpty()) << log_.lines.value(0);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QUICK_CONTROLS_STYLE", "Basic");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
