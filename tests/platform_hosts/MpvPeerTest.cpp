// The player's side of the socket played by the test: what a real player never or seldom sends.
#include "platform/hosts/MpvConnection.h"
#include "platform/hosts/MpvHost.h"
#include "platform/hosts/MpvHostRuntime.h"
#include "platform/hosts/TimelineObservers.h"
#include "support/MpvPlayer.h"
#include "support/Panel.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

namespace {

using Answer = std::function<QByteArray(const QJsonObject& request)>;

// Listens at a path, sends `greeting` to whoever connects and answers requests. Without `answer` it
// hangs up.
struct Peer {
  Peer(const QString& path, const Answer& answer, const QByteArray& greeting = {}) {
    QLocalServer::removeServer(path);
    EXPECT_TRUE(server_.listen(path));
    QObject::connect(&server_, &QLocalServer::newConnection, [this, answer, greeting] {
      ++connections;
      socket_ = server_.nextPendingConnection();
      if (!answer) return socket_->abort();
      send(greeting);
      QObject::connect(socket_, &QLocalSocket::readyRead, socket_, [socket = socket_, answer] {
        while (socket->canReadLine())
          socket->write(answer(QJsonDocument::fromJson(socket->readLine()).object()));
      });
    });
  }

  // To the last that connected.
  void send(const QByteArray& bytes) { socket_->write(bytes); }

  int connections = 0;

 private:
  QLocalServer server_;
  QPointer<QLocalSocket> socket_;
};

QByteArray noAnswer(const QJsonObject&) {
  return {};
}

QByteArray line(const QJsonObject& message) {
  return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray reply(const QJsonObject& request, const QString& error = u"success"_s,
                 const QJsonValue& data = {}) {
  return line(
      {{u"request_id"_s, request.value(u"request_id")}, {u"error"_s, error}, {u"data"_s, data}});
}

TEST(MpvConnection, ClosesOnGarbage) {
  const std::pair<const char*, QByteArray> cases[] = {
      {"no JSON", "hello\n"},
      {"neither reply nor event", "{}\n"},
      {"nested deeply", QByteArray(200'000, '[') + '\n'},
      {"a line without end", QByteArray(3 << 20, 'x')},
      {"hangs up", ""},
  };
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"s"_s);
  for (const auto& [what, bytes] : cases) {
    const Peer peer(path, bytes.isEmpty() ? Answer() : noAnswer, bytes);
    auto connection = MpvConnection::open(path);
    ASSERT_TRUE(connection) << connection.error();
    bool closed = false;
    QObject::connect(connection->get(), &MpvConnection::closed, [&] { closed = true; });
    EXPECT_TRUE(waitUntil([&] { return closed; })) << what;
  }
}

TEST(MpvHostRuntime, WaitsForARealPlayerBehindGarbage) {
  MpvPlayer player({testClip(u"25"_s)});
  player.kill();
  auto peer = std::make_unique<Peer>(player.socketPath(), noAnswer, "220 welcome\r\n");
  MpvHostRuntime runtime(player.socketPath());
  ASSERT_TRUE(waitUntil([&] { return peer->connections >= 2; }));
  std::ignore = waitUntil([] { return false; }, 200ms);
  EXPECT_LE(peer->connections, 10) << "it does not go on trying for ever";
  EXPECT_EQ(runtime.hostSingleton(), nullptr);
  peer.reset();

  player.start();
  EXPECT_TRUE(waitUntil([&] { return runtime.hostSingleton() != nullptr; }));
}

// A player that shows ten seconds at 25 frames a second and answers as the test says.
TEST(MpvHost, EveryMoveEnds) {
  enum { Refuse, Obey, LoseFile } outcome = Refuse;
  bool seeks = false;
  bool askedTooEarly = false;
  // The number that a property is observed under.
  QHash<QString, int> ids;
  const auto change = [&](const QString& name, const QJsonValue& value) {
    return line(
        {{u"event"_s, u"property-change"_s}, {u"id"_s, ids.value(name)}, {u"data"_s, value}});
  };
  const QTemporaryDir folder;
  Peer peer(folder.filePath(u"s"_s), [&](const QJsonObject& request) {
    const QJsonArray arguments = request.value(u"command").toArray();
    const QString command = arguments[0].toString();
    if (command == u"observe_property") {
      static const QHash<QString, QJsonValue> values{
          {u"path"_s, u"/a.mov"_s}, {u"media-title"_s, u"A"_s}, {u"idle-active"_s, false},
          {u"duration"_s, 10.0},    {u"container-fps"_s, 25.0}, {u"time-pos"_s, 2.0},
      };
      const QString name = arguments[2].toString();
      ids.insert(name, arguments[1].toInt());
      return reply(request) + change(name, values.value(name));
    }
    if (command == u"get_property") {
      askedTooEarly = !seeks;
      return reply(request, u"success"_s, 4.04);
    }
    if (outcome == Refuse) return reply(request, u"error running command"_s);
    if (outcome == LoseFile) return reply(request) + line({{u"event"_s, u"end-file"_s}});
    QTimer::singleShot(50, [&] {
      seeks = true;
      peer.send(change(u"time-pos"_s, 1.0) + line({{u"event"_s, u"seek"_s}}) +
                line({{u"event"_s, u"playback-restart"_s}}));
    });
    // The end of somebody else's seek comes first, at some other place.
    return reply(request) + line({{u"event"_s, u"playback-restart"_s}});
  });
  MpvHostRuntime runtime(folder.filePath(u"s"_s));
  Panel panel(runtime);
  ASSERT_TRUE(panel.ready());
  FCPXTimeline* const timeline = runtime.hostSingleton()->timeline();
  // What the host told while it was found is told by then.
  std::ignore = waitUntil([] { return false; }, TimelineObservers::kInterval * 4);
  CountingObserver observer;
  timeline->addTimelineObserver(&observer);

  panel.adapter.movePlayhead(4);
  EXPECT_EQ(panel.snapshot.playheadSeconds, 4);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads == 1; }, MpvHost::kSeekDeadline / 2));
  EXPECT_EQ(timeline->playheadTime(), MediaTime(50, 25)) << "what is refused is dropped";

  outcome = Obey;
  panel.adapter.movePlayhead(4);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads == 2; }));
  EXPECT_EQ(timeline->playheadTime(), MediaTime(101, 25)) << "where the player says it went";
  EXPECT_FALSE(askedTooEarly);

  outcome = LoseFile;
  panel.adapter.movePlayhead(6);
  EXPECT_TRUE(waitUntil([&] { return observer.playheads == 3; }, MpvHost::kSeekDeadline / 2));
}

}  // namespace
