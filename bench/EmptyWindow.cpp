// The smallest Qt Quick window: what a panel that shows nothing would cost.
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <memory>

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  QQmlEngine engine;
  QQmlComponent component(&engine);
  component.setData("import QtQuick\nWindow { width: 1040; height: 780; visible: true }", QUrl());
  const std::unique_ptr<QObject> window(component.create());
  return window ? QGuiApplication::exec() : 1;
}
