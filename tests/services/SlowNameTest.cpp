#include "services/HttpClient.h"

#include <dlfcn.h>
#include <future>
#include <netdb.h>

static std::atomic<bool> answersNames = false;

// In front of the system's own: a name server that is silent cannot be had otherwise.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints,
                           addrinfo** result) {
  if (name != nullptr && qstrcmp(name, "silent.example") == 0) {
    while (!answersNames) std::this_thread::sleep_for(5ms);
    return EAI_AGAIN;
  }
  static const auto next =
      reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  return next(name, service, hints, result);
}

// A look-up cannot be stopped, so it is left behind: whoever waits for the client to end, waits no
// longer for it.
TEST(HttpClient, LeavesANameThatIsNotFoundBehind) {
  qputenv("no_proxy", "silent.example");
  answersNames = false;
  const auto failure = [](std::chrono::milliseconds patience,
                          const std::stop_token& stop) -> std::optional<TransportError::Kind> {
    HttpOptions options;
    options.connectTimeout = patience;
    try {
      std::ignore = HttpClient(options).download(
          QUrl(QStringLiteral("https://silent.example/")), [](auto) {}, stop);
    } catch (const TransportError& error) {
      return error.kind();
    } catch (const Stopped&) {
    }
    return std::nullopt;
  };
  std::stop_source stop;
  std::promise<void> done;
  // Ends the test when the client does not.
  auto watchdog = std::async(std::launch::async, [&, ended = done.get_future()] {
    std::this_thread::sleep_for(100ms);
    stop.request_stop();
    EXPECT_EQ(ended.wait_for(10s), std::future_status::ready);
    answersNames = true;
  });
  EXPECT_EQ(failure(1min, stop.get_token()), std::nullopt);
  EXPECT_EQ(failure(300ms, {}), TransportError::Kind::TimedOut);
  done.set_value();
  watchdog.get();
  EXPECT_EQ(failure(1min, {}), TransportError::Kind::Unreachable);
}
