// The player's side of the socket played by the test: what a real player never or seldom sends.
#include "platform/hosts/MpvConnection.h"
#include "platform/hosts/MpvHost.h"
#include "platform/hosts/MpvHostRuntime.h"
#include "platform/hosts/TimelineObservers.h"
#include "platform_hosts/Panel.h"
#include "support/MpvPlayer.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <atomic>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

using namespace orvex;

namespace {

void sendAll(int descriptor, const QByteArray& bytes) {
  for (qsizetype sent = 0; sent < bytes.size();) {
    const ssize_t count = ::send(descriptor, bytes.constData() + sent,
                                 static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
    if (count <= 0) return;
    sent += count;
  }
}

// Listens at a path, `pause` after it has made the socket's file, and serves each connection, one
// after another, on a thread of its own.
class Peer {
 public:
  Peer(const QString& path, std::function<void(int descriptor)> serve,
       std::chrono::milliseconds pause = {}) {
    const QByteArray name = QFile::encodeName(path);
    ::unlink(name.constData());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    if (pause.count() == 0) {
      EXPECT_EQ(::listen(listener, 8), 0);
    }
    thread_ = std::jthread([this, listener, pause, serve = std::move(serve)](std::stop_token stop) {
      if (pause.count() > 0) {
        std::this_thread::sleep_for(pause);
        ::listen(listener, 8);
      }
      while (!stop.stop_requested()) {
        pollfd waiting{listener, POLLIN, 0};
        if (::poll(&waiting, 1, 5) <= 0) continue;
        const int descriptor = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        ++connections;
        serving_ = descriptor;
        serve(descriptor);
        serving_ = -1;
        ::close(descriptor);
      }
      ::close(listener);
    });
  }

  ~Peer() {
    thread_.request_stop();
    // What is served may wait for the other side, which outlives this.
    ::shutdown(serving_, SHUT_RDWR);
  }

  std::atomic<int> connections = 0;

 private:
  std::atomic<int> serving_ = -1;
  std::jthread thread_;
};

// Reads requests until the other side hangs up; `answer` returns the lines to send for each.
void answerRequests(int descriptor, const std::function<QByteArray(const QJsonObject&)>& answer) {
  QByteArray received;
  std::array<char, 4096> chunk;
  for (;;) {
    const ssize_t count = ::recv(descriptor, chunk.data(), chunk.size(), 0);
    if (count <= 0) return;
    received.append(chunk.data(), count);
    for (qsizetype end; (end = received.indexOf('\n')) >= 0; received.remove(0, end + 1))
      sendAll(descriptor, answer(QJsonDocument::fromJson(received.first(end)).object()));
  }
}

QByteArray line(const QJsonObject& message) {
  return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray reply(const QJsonObject& request, const QString& error = QStringLiteral("success"),
                 const QJsonValue& data = {}) {
  return line({{QStringLiteral("request_id"), request.value(u"request_id")},
               {QStringLiteral("error"), error},
               {QStringLiteral("data"), data}});
}

QByteArray event(const QString& name) {
  return line({{QStringLiteral("event"), name}});
}

QByteArray propertyChange(int id, const QJsonValue& value) {
  return line({{QStringLiteral("event"), QStringLiteral("property-change")},
               {QStringLiteral("id"), id},
               {QStringLiteral("data"), value}});
}

// Answers "observe_property" like a player that shows ten seconds at 25 frames a second, and keeps
// the number that a property is observed under.
class FakeState {
 public:
  QByteArray answer(const QJsonObject& request) {
    static const QHash<QString, QJsonValue> values{
        {QStringLiteral("path"), QStringLiteral("/a.mov")},
        {QStringLiteral("media-title"), QStringLiteral("A")},
        {QStringLiteral("idle-active"), false},
        {QStringLiteral("duration"), 10.0},
        {QStringLiteral("container-fps"), 25.0},
        {QStringLiteral("time-pos"), 2.0},
    };
    const QJsonArray command = request.value(u"command").toArray();
    if (command[0] != QStringLiteral("observe_property")) return {};
    const QString name = command[2].toString();
    ids.insert(name, command[1].toInt());
    return reply(request) + propertyChange(command[1].toInt(), values.value(name));
  }

  QHash<QString, int> ids;
};

TEST(MpvConnection, ClosesOnGarbage) {
  const struct {
    const char* what;
    QByteArray bytes;
  } cases[] = {
      {"no JSON", "hello\n"},
      {"empty line", "\n"},
      {"no object", "[1]\n"},
      {"neither reply nor event", "{}\n"},
      {"event without a name", "{\"event\":1}\n"},
      {"request number as text", "{\"request_id\":\"1\",\"error\":\"success\"}\n"},
      {"reply without an outcome", "{\"request_id\":1}\n"},
      {"cut off", "{\"event\":\"se\n"},
      {"NUL", QByteArray("{\"event\":\"a\"}\0\n", 15)},
      {"nested deeply", QByteArray(200'000, '[') + '\n'},
      {"a line without end", QByteArray(3 << 20, 'x')},
      {"a long line", "{\"event\":\"" + QByteArray(2 << 20, 'x') + "\"}\n"},
      {"hangs up", ""},
  };
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("s"));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Peer peer(path, [&c](int descriptor) {
      sendAll(descriptor, c.bytes);
      if (c.bytes.isEmpty()) return;
      answerRequests(descriptor, [](const QJsonObject&) { return QByteArray(); });
    });
    auto connection = MpvConnection::open(path);
    ASSERT_TRUE(connection) << connection.error().toStdString();
    int closed = 0;
    QObject::connect(connection->get(), &MpvConnection::closed, [&] { ++closed; });
    EXPECT_TRUE(waitUntil([&] { return closed > 0; }));
    (*connection)->send({QStringLiteral("stop")});
    QCoreApplication::processEvents();
    EXPECT_EQ(closed, 1);
  }
}

TEST(MpvConnection, SaysWhyItCannotConnect) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("file")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  for (const QString& path : {folder.filePath(QStringLiteral("nothing")), file.fileName(),
                              folder.path(), QString(), QString(108, u'x')}) {
    const auto connection = MpvConnection::open(path);
    ASSERT_FALSE(connection);
    EXPECT_TRUE(connection.error().contains(path));
  }
}

TEST(MpvMessage, ReadsNamesThatAreNotUtf8) {
  const auto message =
      parseMpvMessage("{\"event\":\"property-change\",\"id\":2,\"data\":\"a\xff\"}");
  ASSERT_TRUE(message);
  EXPECT_EQ(std::get<MpvEvent>(*message).data.toString(), u"a\uFFFD");
}

TEST(MpvHostRuntime, WaitsForARealPlayerBehindGarbage) {
  MpvPlayer player({testClip(QStringLiteral("25"))});
  player.kill();
  std::unique_ptr<Peer> peer = std::make_unique<Peer>(player.socketPath(), [](int descriptor) {
    sendAll(descriptor, "220 welcome\r\n");
    answerRequests(descriptor, [](const QJsonObject&) { return QByteArray(); });
  });
  MpvHostRuntime runtime(player.socketPath());
  ASSERT_TRUE(waitUntil([&] { return peer->connections >= 2; }));
  std::ignore = waitUntil([] { return false; }, std::chrono::milliseconds(200));
  EXPECT_LE(peer->connections, 10) << "it does not go on trying for ever";
  EXPECT_EQ(runtime.hostSingleton(), nullptr);
  peer.reset();

  player.start();
  EXPECT_TRUE(waitUntil([&] { return runtime.hostSingleton() != nullptr; }));
}

TEST(MpvHostRuntime, TriesAgainWhileThePlayerDoesNotListenYet) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("s"));
  MpvHostRuntime runtime(path);
  std::ignore = waitUntil([] { return false; }, std::chrono::milliseconds(600));
  FakeState state;
  Peer peer(
      path,
      [&state](int descriptor) {
        answerRequests(descriptor,
                       [&state](const QJsonObject& request) { return state.answer(request); });
      },
      std::chrono::milliseconds(60));
  EXPECT_TRUE(waitUntil([&] { return runtime.hostSingleton() != nullptr; }));
}

TEST(MpvHost, CoalescesAFlood) {
  constexpr int kEvents = 50'000;
  const QTemporaryDir folder;
  FakeState state;
  Peer peer(folder.filePath(QStringLiteral("s")), [&](int descriptor) {
    answerRequests(descriptor, [&](const QJsonObject& request) {
      QByteArray answer = state.answer(request);
      if (!answer.isEmpty()) return answer;
      for (int i = 0; i < kEvents; ++i) {
        answer += propertyChange(state.ids.value(QStringLiteral("time-pos")), (i % 250) / 25.0);
        if (i % 10 == 0)
          answer += propertyChange(state.ids.value(QStringLiteral("duration")), 5 + i % 7);
      }
      return answer + propertyChange(state.ids.value(QStringLiteral("time-pos")), 9.0) +
             propertyChange(state.ids.value(QStringLiteral("duration")), 12) + reply(request);
    });
  });
  MpvHostRuntime runtime(folder.filePath(QStringLiteral("s")));
  Panel panel(runtime);
  ASSERT_TRUE(panel.ready());
  FCPXTimeline* timeline = runtime.hostSingleton()->timeline();
  CountingObserver observer;
  timeline->addTimelineObserver(&observer);
  QElapsedTimer time;
  time.start();
  panel.adapter.movePlayhead(4);
  ASSERT_TRUE(waitUntil([&] { return panel.snapshot.sequenceDurationSeconds == 12; }));
  EXPECT_LE(observer.all(), time.elapsed() / 16 + 1);
  EXPECT_EQ(timeline->playheadTime(), MediaTime(100, 25)) << "the move is still under way";
  timeline->removeTimelineObserver(&observer);
}

TEST(MpvHost, EndsEveryMove) {
  const QTemporaryDir folder;
  FakeState state;
  enum Answer { Refuse, Obey, LoseFile };
  std::atomic<Answer> answerTo = Refuse;
  std::atomic<bool> askedTooEarly = false;
  Peer peer(folder.filePath(QStringLiteral("s")), [&](int descriptor) {
    answerRequests(descriptor, [&](const QJsonObject& request) {
      const QByteArray answer = state.answer(request);
      if (!answer.isEmpty()) return answer;
      const QString command = request.value(u"command").toArray()[0].toString();
      if (command == u"get_property") return reply(request, QStringLiteral("success"), 4.04);
      if (answerTo == Refuse) return reply(request, QStringLiteral("error running command"));
      if (answerTo == LoseFile) return reply(request) + event(QStringLiteral("end-file"));
      // The end of somebody else's seek comes first, at some other place.
      sendAll(descriptor, reply(request) + event(QStringLiteral("playback-restart")));
      pollfd asked{descriptor, POLLIN, 0};
      askedTooEarly = ::poll(&asked, 1, 50) > 0;
      return propertyChange(state.ids.value(QStringLiteral("time-pos")), 1.0) +
             event(QStringLiteral("seek")) + event(QStringLiteral("playback-restart"));
    });
  });
  MpvHostRuntime runtime(folder.filePath(QStringLiteral("s")));
  Panel panel(runtime);
  ASSERT_TRUE(panel.ready());
  EXPECT_EQ(panel.snapshot.playheadSeconds, 2);
  FCPXTimeline* timeline = runtime.hostSingleton()->timeline();
  CountingObserver observer;
  // What the host told while it was found is told by then.
  std::ignore = waitUntil([] { return false; }, TimelineObservers::kInterval * 4);
  timeline->addTimelineObserver(&observer);

  panel.adapter.movePlayhead(4);
  EXPECT_EQ(panel.snapshot.playheadSeconds, 4);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads == 1; }));
  EXPECT_EQ(timeline->playheadTime(), MediaTime(50, 25)) << "what is refused is dropped";

  answerTo = Obey;
  panel.adapter.movePlayhead(4);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads == 2; }));
  EXPECT_EQ(timeline->playheadTime(), MediaTime(101, 25)) << "where the player says it went";
  EXPECT_FALSE(askedTooEarly);

  answerTo = LoseFile;
  panel.adapter.movePlayhead(6);
  EXPECT_TRUE(waitUntil([&] { return observer.playheads == 3; }, MpvHost::kSeekDeadline / 2));
  timeline->movePlayheadTo(MediaTime());
  EXPECT_TRUE(waitUntil([&] { return observer.playheads == 4; }));
  timeline->removeTimelineObserver(&observer);
}

}  // namespace
