#pragma once

#include "engines/MotionTemplateRegistry.h"
#include "ui/library/LibraryModel.h"

namespace orvex {

/// To QML, only what begins with a capital is an enumerator.
namespace MotionTemplateKindNames {
Q_NAMESPACE
QML_NAMED_ELEMENT(MotionTemplateKind)
enum Kind {
  /// No kind in particular.
  Any = -1,
  Effect = static_cast<int>(MotionTemplateKind::Effect),
  Generator = static_cast<int>(MotionTemplateKind::Generator),
  Title = static_cast<int>(MotionTemplateKind::Title),
  Transition = static_cast<int>(MotionTemplateKind::Transition),
};
Q_ENUM_NS(Kind)
}  // namespace MotionTemplateKindNames

/// The Motion templates, those of one kind where one is set; found by name and category.
class MotionTemplateModel : public orvex::LibraryModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orvex::MotionTemplateRegistry* registry READ registry WRITE setRegistry NOTIFY
                 registryChanged FINAL)
  /// A `MotionTemplateKind` as its number: views compare numbers.
  Q_PROPERTY(int kind READ kind WRITE setKind NOTIFY kindChanged FINAL)

 public:
  enum Role { Name = Qt::UserRole, Kind, Category, FileURL, PreviewURL };

  [[nodiscard]] int kind() const noexcept { return kind_; }
  void setKind(int kind);

  [[nodiscard]] MotionTemplateRegistry* registry() const noexcept { return source_.registry; }
  void setRegistry(MotionTemplateRegistry* registry) { observe(source_, registry); }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void kindChanged();

 protected:
  [[nodiscard]] QList<qsizetype> matching(QStringView search) const override;

 private:
  Source<MotionTemplateRegistry, MotionTemplateItem> source_;
  int kind_ = MotionTemplateKindNames::Any;
};

}  // namespace orvex
