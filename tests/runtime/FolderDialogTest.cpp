#include "platform/SystemLog.h"
#include "runtime/QuickFolderChooser.h"
#include "support/Wait.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>

#include <gtest/gtest.h>

using namespace orvex;

namespace {

class NoLog final : public SystemLog {
  void line(const QString& text) override { ADD_FAILURE() << qPrintable(text); }
};

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
  void choose() {
    chooser_->choose(u"LUT klasörünü seç"_qs, u"Seç"_qs, [this](const std::optional<QUrl>& url) {
      answers_.append(url ? url->toLocalFile() : u"nothing"_qs);
    });
    EXPECT_TRUE(answers_.isEmpty());
  }
  [[nodiscard]] QQuickItem* button(const QString& text) {
    QQuickItem* found = nullptr;
    EXPECT_TRUE(waitUntil([&] {
      found = itemWithText(window_.contentItem(), text);
      return found != nullptr && found->isEnabled();
    })) << qPrintable(text);
    return found;
  }
  [[nodiscard]] bool answered() {
    return waitUntil([this] { return !answers_.isEmpty(); });
  }

  QQmlEngine engine_;
  QQuickWindow window_;
  NoLog log_;
  std::unique_ptr<QuickFolderChooser> chooser_ =
      std::make_unique<QuickFolderChooser>(engine_, window_, log_);
  QStringList answers_;
};

TEST_F(FolderDialogs, AnswerTheAcceptedFolderAndNothingWhenCancelled) {
  choose();
  QQuickItem* accept = button(u"Seç"_qs);
  ASSERT_TRUE(accept);
  QMetaObject::invokeMethod(accept, "clicked");
  ASSERT_TRUE(answered());
  EXPECT_TRUE(QFileInfo(answers_[0]).isDir()) << qPrintable(answers_[0]);
  EXPECT_FALSE(answers_.takeFirst().endsWith(u'/'));

  choose();
  ASSERT_TRUE(button(u"Seç"_qs));
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&window_, &escape);
  ASSERT_TRUE(answered());
  EXPECT_EQ(answers_.takeFirst(), u"nothing");

  choose();
  ASSERT_TRUE(button(u"Seç"_qs));
  chooser_.reset();
  EXPECT_FALSE(waitUntil([this] { return !answers_.isEmpty(); }, std::chrono::milliseconds(50)));
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QQuickStyle::setStyle(u"Basic"_qs);
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
