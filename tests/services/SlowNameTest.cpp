#include "services/HttpClient.h"

#include <atomic>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <thread>

using namespace std::chrono_literals;

static std::atomic<bool> answersNames = false;

// In front of the system's own: a name server that is silent cannot be had otherwise.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints,
                           addrinfo** result) {
  if (name != nullptr && qstrcmp(name, "silent.example") == 0) {
    while (!answersNames) std::this_thread::sleep_for(5ms);
    return EAI_AGAIN;
  }
  using Function = decltype(&getaddrinfo);
  static const auto next = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  return next(name, service, hints, result);
}

namespace orvex {
namespace {

// A look-up cannot be stopped, so it is left behind: whoever waits for the client to end, waits no
// longer for it.
TEST(HttpClient, LeavesANameThatIsNotFoundBehind) {
  const QUrl url(QStringLiteral("https://silent.example/"));
  qputenv("no_proxy", "silent.example");
  HttpOptions options;
  options.connectTimeout = 300ms;
  answersNames = false;
  // Ends the test when the client does not.
  std::atomic<bool> isDone = false;
  std::jthread watchdog([&] {
    for (int i = 0; i < 1000 && !isDone; ++i) std::this_thread::sleep_for(10ms);
    EXPECT_TRUE(isDone);
    answersNames = true;
  });
  try {
    std::ignore = HttpClient(options).download(url, [](auto) {}, {});
    ADD_FAILURE();
  } catch (const TransportError& error) {
    EXPECT_EQ(error.kind(), TransportError::Kind::TimedOut);
  }
  options.connectTimeout = 1min;
  std::stop_source stop;
  const std::jthread later([&stop] {
    std::this_thread::sleep_for(100ms);
    stop.request_stop();
  });
  EXPECT_THROW(std::ignore = HttpClient(options).download(
                   url, [](auto) {}, stop.get_token()),
               Stopped);
  isDone = true;
  watchdog.join();
  try {
    std::ignore = HttpClient(options).download(url, [](auto) {}, {});
    ADD_FAILURE();
  } catch (const TransportError& error) {
    EXPECT_EQ(error.kind(), TransportError::Kind::Unreachable);
  }
}

}  // namespace
}  // namespace orvex
