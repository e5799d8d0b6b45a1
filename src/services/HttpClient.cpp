#include "services/HttpClient.h"

#include "base/SystemLibrary.h"
#include "services/Curl.h"
#include "services/TransportFailure.h"

#include <QFile>

#include <algorithm>
#include <exception>
#include <openssl/ssl.h>

namespace orvex {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr long kMaximumRedirects = 5;
// Of all answers on the way, redirects included.
constexpr std::size_t kMaximumHeaderBytes = 256 * 1024UL;
constexpr long kReceiveBufferBytes = 256 * 1024L;
// How often the clock is looked at while nothing happens; a stop wakes the wait itself.
constexpr auto kTick = 100ms;

// What adds a certificate to those that libcurl, which is built with the same library, trusts.
struct Tls {
  static const Tls& loaded() {
    static const Tls tls;
    return tls;
  }

  SystemLibrary ssl{"ssl", OPENSSL_SHLIB_VERSION};
  SystemLibrary crypto{"crypto", OPENSSL_SHLIB_VERSION};
  decltype(::SSL_CTX_get_cert_store)* const storeOf =
      ssl.function<decltype(::SSL_CTX_get_cert_store)>("SSL_CTX_get_cert_store");
  decltype(::X509_STORE_load_file)* const load =
      crypto.function<decltype(::X509_STORE_load_file)>("X509_STORE_load_file");
};

struct CloseList {
  void operator()(curl_slist* list) const noexcept { Curl::loaded().slist_free_all(list); }
};
using HeaderList = std::unique_ptr<curl_slist, CloseList>;

}  // namespace

// The transfer that is on its way and the connections that stay between two of them.
class HttpClient::Connection final {
 public:
  explicit Connection(const HttpOptions& options) : options_(options) {
    easy_.reset(curl_.easy_init());
    multi_.reset(curl_.multi_init());
    if (!easy_ || !multi_) throw std::bad_alloc();
  }

  // One exchange, to its end. Returns the status.
  int exchange(const HttpRequest& request, bool isDownload, const Sink& sink,
               const std::stop_token& stop) {
    if (request.url.scheme() != u"https")
      throw transportError({.code = CURLE_URL_MALFORMAT, .host = request.url.toString()});
    transfer_ = {};
    transfer_.host = request.url.host();
    transfer_.sink = &sink;
    transfer_.stop = &stop;
    transfer_.isDownload = isDownload;
    curl_.easy_reset(easy_.get());
    const HeaderList headers = setUp(request);
    const CURLcode code = perform(stop);
    if (transfer_.failure) std::rethrow_exception(transfer_.failure);
    if (code != CURLE_OK && stop.stop_requested()) throw Stopped();
    if (code != CURLE_OK && !transfer_.isBodyUnwanted) throw transportError(failure(code));
    return status();
  }

 private:
  struct Transfer {
    QString host;
    const Sink* sink = nullptr;
    const std::stop_token* stop = nullptr;
    bool isDownload = false;
    // A line of the answer to the newest request of this exchange has come.
    bool isAnswered = false;
    // The body, or its rest, belongs to a status that says enough.
    bool isBodyUnwanted = false;
    std::size_t headerBytes = 0;
    // What a callback threw.
    std::exception_ptr failure;
    // Of a download: what came since when.
    qint64 windowBytes = 0;
    Clock::time_point windowStart = Clock::now();
  };

  // The list must live until the transfer has ended.
  HeaderList setUp(const HttpRequest& request) {
    set(CURLOPT_URL, request.url.toEncoded().constData());
    set(CURLOPT_PROTOCOLS_STR, "https");
    set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, kMaximumRedirects);
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    set(CURLOPT_USERAGENT, "VantreloOrvexFinalCutExtension");
    set(CURLOPT_NOSIGNAL, 1L);
    // A name that is being looked up is left behind instead of waited for.
    set(CURLOPT_QUICK_EXIT, 1L);
    // Refused while the buffer of a transfer that failed is still there; it is as large.
    std::ignore = curl_.easy_setopt(easy_.get(), CURLOPT_BUFFERSIZE, kReceiveBufferBytes);
    if (!options_.caFile.isEmpty()) {
      tls_ = &Tls::loaded();
      set(CURLOPT_SSL_CTX_FUNCTION, &Connection::trust);
      set(CURLOPT_SSL_CTX_DATA, this);
    }
    set(CURLOPT_PREREQFUNCTION, &Connection::begun);
    set(CURLOPT_PREREQDATA, this);
    set(CURLOPT_HEADERFUNCTION, &Connection::takeHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &Connection::takeBody);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options_.connectTimeout.count()));
    auto timeout = request.timeout;
    if (options_.longestTimeout > 0ms) timeout = std::min(timeout, options_.longestTimeout);
    if (!transfer_.isDownload) set(CURLOPT_TIMEOUT_MS, static_cast<long>(timeout.count()));
    if (request.method == "POST") {
      set(CURLOPT_POST, 1L);
      set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
      set(CURLOPT_POSTFIELDS, request.body.constData());
    }
    HeaderList list;
    // Bodies are sent at once, without asking first whether they may be.
    append(list, "Expect:");
    for (const auto& [name, value] : request.headers) append(list, name + ": " + value);
    set(CURLOPT_HTTPHEADER, list.get());
    return list;
  }

  void append(HeaderList& list, const QByteArray& line) {
    curl_slist* const longer = curl_.slist_append(list.get(), line.constData());
    if (longer == nullptr) throw std::bad_alloc();
    std::ignore = list.release();
    list.reset(longer);
  }

  template <typename Value>
  void set(CURLoption option, Value value) {
    const CURLcode code = curl_.easy_setopt(easy_.get(), option, value);
    if (code == CURLE_OUT_OF_MEMORY) throw std::bad_alloc();
    // A library that does not know one of them would go without, https alone among them.
    if (code != CURLE_OK) throw transportError({.code = code, .host = transfer_.host});
  }

  CURLcode perform(const std::stop_token& stop) {
    CURLM* const multi = multi_.get();
    const std::stop_callback wake(stop, [this, multi] { curl_.multi_wakeup(multi); });
    curl_.multi_add_handle(multi, easy_.get());
    struct Removal {
      const Curl& curl;
      CURLM* multi;
      CURL* easy;
      ~Removal() { curl.multi_remove_handle(multi, easy); }
    } const removal{curl_, multi, easy_.get()};
    for (;;) {
      if (stop.stop_requested()) throw Stopped();
      int running = 0;
      if (curl_.multi_perform(multi, &running) != CURLM_OK) return CURLE_FAILED_INIT;
      int left = 0;
      if (const CURLMsg* const message = curl_.multi_info_read(multi, &left))
        return message->data.result;
      if (isStalled()) throw timedOut(transfer_.host);
      curl_.multi_poll(multi, nullptr, 0, static_cast<int>(kTick.count()), nullptr);
    }
  }

  bool isStalled() {
    const auto now = Clock::now();
    const auto spent = now - transfer_.windowStart;
    if (!transfer_.isDownload || spent < options_.stallTimeout) return false;
    const double seconds = std::chrono::duration<double>(spent).count();
    if (static_cast<double>(transfer_.windowBytes) <
        static_cast<double>(options_.minimumRate) * seconds)
      return true;
    transfer_.windowBytes = 0;
    transfer_.windowStart = now;
    return false;
  }

  [[nodiscard]] int status() const {
    long status = 0;
    curl_.easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
    return static_cast<int>(status);
  }

  [[nodiscard]] TransportFailure failure(CURLcode code) const {
    TransportFailure failure{
        .code = code, .host = transfer_.host, .unanswered = !transfer_.isAnswered};
    curl_.easy_getinfo(easy_.get(), CURLINFO_SSL_VERIFYRESULT, &failure.verifyResult);
    curl_.easy_getinfo(easy_.get(), CURLINFO_OS_ERRNO, &failure.systemError);
    return failure;
  }

  // Adds the configured certificates to those that the system trusts.
  static CURLcode trust(CURL*, void* context, void* self) {
    auto* const connection = static_cast<Connection*>(self);
    const QString& file = connection->options_.caFile;
    const Tls& tls = *connection->tls_;
    X509_STORE* const store = tls.storeOf(static_cast<SSL_CTX*>(context));
    if (tls.load(store, QFile::encodeName(file).constData()) == 1) return CURLE_OK;
    connection->transfer_.failure = std::make_exception_ptr(TransportError(
        TransportError::Kind::Certificate,
        QStringLiteral(
            "\"%1\" dosyasındaki sertifikalar okunamadı. ORVEX_CA_FILE ile PEM biçiminde "
            "bir dosya göster.")
            .arg(file)));
    return CURLE_ABORTED_BY_CALLBACK;
  }

  static int begun(void* self, char*, char*, int, int) {
    static_cast<Connection*>(self)->transfer_.isAnswered = false;
    return CURL_PREREQFUNC_OK;
  }

  static std::size_t takeHeader(char*, std::size_t, std::size_t size, void* self) {
    Transfer& transfer = static_cast<Connection*>(self)->transfer_;
    transfer.isAnswered = true;
    transfer.headerBytes += size;
    transfer.windowBytes += static_cast<qint64>(size);
    if (transfer.headerBytes <= kMaximumHeaderBytes) return size;
    transfer.failure = std::make_exception_ptr(tooLarge(transfer.host));
    return 0;
  }

  static std::size_t takeBody(char* data, std::size_t, std::size_t size, void* self) {
    auto* const connection = static_cast<Connection*>(self);
    Transfer& transfer = connection->transfer_;
    if (transfer.stop->stop_requested()) return 0;
    transfer.windowBytes += static_cast<qint64>(size);
    if (transfer.isDownload && !isSuccess(connection->status())) {
      transfer.isBodyUnwanted = true;
      return 0;
    }
    try {
      (*transfer.sink)(QByteArrayView(data, static_cast<qsizetype>(size)));
      return size;
    } catch (...) {
      // Of a refusal the status counts, however long its words are.
      transfer.isBodyUnwanted = !isSuccess(connection->status());
      if (!transfer.isBodyUnwanted) transfer.failure = std::current_exception();
      return 0;
    }
  }

  struct CloseEasy {
    void operator()(CURL* easy) const noexcept { Curl::loaded().easy_cleanup(easy); }
  };
  struct CloseMulti {
    void operator()(CURLM* multi) const noexcept { Curl::loaded().multi_cleanup(multi); }
  };

  const Curl& curl_ = Curl::loaded();
  // Where there is a certificate to add.
  const Tls* tls_ = nullptr;
  HttpOptions options_;
  Transfer transfer_;
  // Closed after the transfer that used it.
  std::unique_ptr<CURLM, CloseMulti> multi_;
  std::unique_ptr<CURL, CloseEasy> easy_;
};

HttpClient::HttpClient(const HttpOptions& options)
    : connection_(std::make_unique<Connection>(options)) {}

HttpClient::~HttpClient() = default;

HttpResponse HttpClient::send(const HttpRequest& request, const std::stop_token& stop) {
  HttpResponse response;
  const Sink collect = [&](QByteArrayView bytes) {
    if (bytes.size() > request.maximumBytes - response.body.size())
      throw tooLarge(request.url.host());
    response.body.append(bytes);
  };
  response.status = connection_->exchange(request, false, collect, stop);
  return response;
}

int HttpClient::download(const QUrl& url, const Sink& sink, const std::stop_token& stop) {
  return connection_->exchange({.url = url, .headers = {}, .body = {}}, true, sink, stop);
}

}  // namespace orvex
