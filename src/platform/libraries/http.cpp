#include "zrcreditbureau/http.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

#include "platform/http_common.h"
#include "platform/http_head.h"
#include "platform/libraries/http_address.h"
#include "platform/libraries/http_phases.h"
#include "platform/libraries/http_record.h"
#include "platform/libraries/http_system.h"
#include "platform/unicode.h"
#include "zrcreditbureau/error.h"

namespace zr {
namespace {

using Clock = HttpPhaseClock::Clock;
using std::chrono::milliseconds;

// Longest wait before the limits, and addresses that do not answer, are looked at again.
constexpr milliseconds kLongestWait{200};
// Authorities that were read are used for so long before their file is read again.
constexpr long kAuthoritiesSeconds = 300;
// Several schemes, so the library waits for a challenge and answers it with the best one offered.
constexpr long kChallenges = static_cast<long>(CURLAUTH_BASIC | CURLAUTH_DIGEST | CURLAUTH_NTLM);

constexpr std::pair<CURLoption, long> kFixedOptions[] = {
    {CURLOPT_NOSIGNAL, 1},    // the process's signals are the host's
    {CURLOPT_QUICK_EXIT, 1},  // a name server that does not answer delays no one's return
    {CURLOPT_NOPROGRESS, 1},
    {CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1},
    {CURLOPT_HTTP09_ALLOWED, 0},
    {CURLOPT_FOLLOWLOCATION, 0},
    {CURLOPT_NETRC, CURL_NETRC_IGNORED},
    {CURLOPT_DISALLOW_USERNAME_IN_URL, 1},
    {CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2},
    {CURLOPT_PROXY_SSLVERSION, CURL_SSLVERSION_TLSv1_2},
    {CURLOPT_PROXY_SSL_VERIFYPEER, 1},
    {CURLOPT_PROXY_SSL_VERIFYHOST, 2},
    {CURLOPT_HEADEROPT, CURLHEADER_SEPARATE},  // our headers are not for a proxy's CONNECT
    {CURLOPT_TIMEOUT_MS, 0},                   // the clock has the limits
    // What a server sends behind its reply must never be read as the reply to another request.
    {CURLOPT_FRESH_CONNECT, 1},
    {CURLOPT_FORBID_REUSE, 1},  // NTLM, which is about a connection, keeps it between its steps
    {CURLOPT_CA_CACHE_TIMEOUT, kAuthoritiesSeconds},
    {CURLOPT_DNS_CACHE_TIMEOUT, 0},
};

void initialise_library() {
    static const CURLcode result = http_system::start();
    if (result != CURLE_OK)
        throw PlatformError(error_number::kUnexpected, "The HTTP library could not be started");
}

struct EasyCleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct MultiCleanup {
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};
struct ShareCleanup {
    void operator()(CURLSH* handle) const { curl_share_cleanup(handle); }
};
struct HeadersCleanup {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using Easy = std::unique_ptr<CURL, EasyCleanup>;
using Multi = std::unique_ptr<CURLM, MultiCleanup>;
using Share = std::unique_ptr<CURLSH, ShareCleanup>;
using Headers = std::unique_ptr<curl_slist, HeadersCleanup>;

template <typename Value>
Value info(CURL* easy, CURLINFO what) {
    Value value{};
    curl_easy_getinfo(easy, what, &value);
    return value;
}

void check(CURLMcode code) {
    if (code == CURLM_OUT_OF_MEMORY) throw std::bad_alloc();
    if (code != CURLM_OK)
        throw PlatformError(error_number::kUnexpected, "The exchange could not be carried out");
}

/// The library has one word for a header line over its own bound and for the end of memory. The
/// line was at most a tenth of this.
bool is_memory_left() {
    constexpr std::size_t kEnough = std::size_t{1} << 20;
    void* const memory = ::operator new(kEnough, std::nothrow);
    ::operator delete(memory);
    return memory != nullptr;
}

/// Fills the record when the exchange is over, however it ends.
struct Recording {
    CURL* easy;
    HttpRecord* record;
    ~Recording() {
        if (record != nullptr) record_exchange(easy, *record);
    }
};

/// One exchange on a handle of its own. `sessions` holds the TLS sessions of the exchanges before.
class Exchange {
  public:
    Exchange(CURLM* multi, CURLSH* sessions, const HttpRequest& request, HttpRecord* record)
        : multi_(multi),
          sessions_(sessions),
          easy_owner_(curl_easy_init()),
          easy_(easy_owner_.get()),
          request_(request),
          record_(record),
          clock_(request.timeouts, Clock::now()) {
        if (easy_ == nullptr) throw std::bad_alloc();
    }
    ~Exchange() { curl_multi_remove_handle(multi_, easy_); }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    HttpReply run() {
        const Recording recording{easy_, record_};
        set_up();
        check(curl_multi_add_handle(multi_, easy_));
        return finish(perform());
    }

  private:
    void set_up();
    void set_callbacks();
    void set_request();
    void set_credentials();
    void set_proxy();

    CURLcode perform();
    const CURLMsg* finished();
    void note_bytes();
    HttpReply finish(CURLcode code);
    [[noreturn]] void fail(CURLcode code);
    std::string content_type();

    bool would_send_again();
    bool take_header(std::string_view line);
    void take_body(std::string_view bytes);
    [[noreturn]] void refuse_size() const;

    static std::size_t on_header(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t on_body(char* data, std::size_t size, std::size_t count, void* self);
    static curl_socket_t on_open_socket(void* self, curlsocktype purpose, curl_sockaddr* address);
    static int on_connected(void* self, char*, char*, int, int);

    CURLM* multi_;
    CURLSH* sessions_;
    Easy easy_owner_;
    CURL* easy_;
    const HttpRequest& request_;
    HttpRecord* record_;  // none where nobody asks
    HttpPhaseClock clock_;
    Headers headers_;
    std::array<char, CURL_ERROR_SIZE> detail_{};

    HttpHeads heads_;
    std::string body_;

    bool is_sent_ = false;           // the request went out at least once
    bool is_heard_ = false;          // something came back since it last went out
    long request_bytes_before_ = 0;  // what had been sent when it last was about to go out
    bool is_lost_ = false;           // the connection died between request and reply
    bool is_given_up_ = false;       // the last reply stands, though the library would answer it
    std::exception_ptr failure_;     // what a callback threw
};

void Exchange::set_up() {
    for (const auto& [option, value] : kFixedOptions) set_option(easy_, option, value);
    set_option(easy_, CURLOPT_SHARE, sessions_);
    set_option(easy_, CURLOPT_ERRORBUFFER, detail_.data());
    set_option(easy_, CURLOPT_PROTOCOLS_STR, "http,https");
    // Backstops. An address that does not answer gets half of this when others are left to try.
    const milliseconds connect = request_.timeouts.connect;
    const milliseconds longest = std::max(2 * connect, connect + request_.timeouts.resolve);
    set_option(easy_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(longest.count()));
    set_callbacks();
    set_request();
    set_credentials();
    set_proxy();
    http_system::set_security(easy_);
    if (record_ != nullptr) set_option(easy_, CURLOPT_CERTINFO, 1L);
}

void Exchange::set_callbacks() {
    set_option(easy_, CURLOPT_HEADERFUNCTION, &Exchange::on_header);
    set_option(easy_, CURLOPT_HEADERDATA, this);
    set_option(easy_, CURLOPT_WRITEFUNCTION, &Exchange::on_body);
    set_option(easy_, CURLOPT_WRITEDATA, this);
    set_option(easy_, CURLOPT_OPENSOCKETFUNCTION, &Exchange::on_open_socket);
    set_option(easy_, CURLOPT_OPENSOCKETDATA, this);
    set_option(easy_, CURLOPT_PREREQFUNCTION, &Exchange::on_connected);
    set_option(easy_, CURLOPT_PREREQDATA, this);
}

void Exchange::set_request() {
    set_option(easy_, CURLOPT_URL, checked_address(request_.url));
    // An empty value takes a header away that the library would send of its own accord.
    for (const std::string& line :
         {std::string("Expect:"), request_.content_type.empty()
                                      ? std::string("Content-Type:")
                                      : "Content-Type: " + request_.content_type}) {
        curl_slist* longer = curl_slist_append(headers_.get(), line.c_str());
        if (longer == nullptr) throw std::bad_alloc();
        static_cast<void>(headers_.release());
        headers_.reset(longer);
    }
    set_option(easy_, CURLOPT_HTTPHEADER, headers_.get());
    if (request_.method == "GET") {
        set_option(easy_, CURLOPT_HTTPGET, 1L);
    } else if (request_.method == "POST") {
        set_option(easy_, CURLOPT_POST, 1L);
        set_option(easy_, CURLOPT_POSTFIELDSIZE_LARGE,
                   static_cast<curl_off_t>(request_.body.size()));
        set_option(easy_, CURLOPT_POSTFIELDS, request_.body.data());
    } else {
        throw PlatformError(error_number::kUnexpected, "The request is neither POST nor GET");
    }
}

void Exchange::set_credentials() {
    if (request_.user.empty()) return;
    set_option(easy_, CURLOPT_HTTPAUTH, kChallenges);
    set_option(easy_, CURLOPT_USERNAME, request_.user);
    set_option(easy_, CURLOPT_PASSWORD, request_.password);
}

void Exchange::set_proxy() {
    const HttpProxy& proxy = request_.proxy;
    switch (proxy.mode) {
        case HttpProxy::Mode::kDirect:
            set_option(easy_, CURLOPT_PROXY, "");  // takes no notice of the environment
            return;
        case HttpProxy::Mode::kPreconfigured:
            http_system::set_machine_proxy(easy_, request_.url);
            break;
        case HttpProxy::Mode::kNamed:
            set_option(easy_, CURLOPT_PROXY, checked_proxy(proxy.server));
            set_option(easy_, CURLOPT_NOPROXY, "");  // nor of its exceptions
            break;
    }
    if (proxy.user.empty()) return;
    set_option(easy_, CURLOPT_PROXYAUTH, kChallenges);
    set_option(easy_, CURLOPT_PROXYUSERNAME, proxy.user);
    set_option(easy_, CURLOPT_PROXYPASSWORD, proxy.password);
}

CURLcode Exchange::perform() {
    for (;;) {
        int running = 0;
        check(curl_multi_perform(multi_, &running));
        if (const CURLMsg* message = finished()) return message->data.result;
        note_bytes();
        const Clock::duration left = clock_.left(Clock::now());
        if (left <= Clock::duration::zero()) throw http_timeout();
        const milliseconds wait = std::min(std::chrono::ceil<milliseconds>(left), kLongestWait);
        check(curl_multi_poll(multi_, nullptr, 0, static_cast<int>(wait.count()), nullptr));
    }
}

const CURLMsg* Exchange::finished() {
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left))
        if (message->msg == CURLMSG_DONE) return message;
    return nullptr;
}

void Exchange::note_bytes() {
    const auto received = info<curl_off_t>(easy_, CURLINFO_SIZE_DOWNLOAD_T);
    clock_.note_bytes(info<curl_off_t>(easy_, CURLINFO_SIZE_UPLOAD_T),
                      static_cast<std::int64_t>(request_.body.size()), received + heads_.bytes(),
                      Clock::now());
    // The body of a challenge is dropped as it comes, and is bounded all the same.
    if (static_cast<std::uint64_t>(received) > request_.max_reply_bytes) refuse_size();
}

HttpReply Exchange::finish(CURLcode code) {
    if (failure_) std::rethrow_exception(failure_);
    // A proxy that refuses the tunnel has replied, though not with anything of the server's.
    const long proxy_status = info<long>(easy_, CURLINFO_HTTP_CONNECTCODE);
    const bool is_tunnel_refused =
        proxy_status >= 300 && (code == CURLE_RECV_ERROR || is_given_up_);
    if (code != CURLE_OK && !is_tunnel_refused && !is_given_up_) fail(code);
    // The library takes a head that ends early for a reply without a body.
    if (!heads_.is_complete()) throw http_connection_lost();
    HttpReply reply;
    reply.status = static_cast<int>(is_tunnel_refused ? proxy_status
                                                      : info<long>(easy_, CURLINFO_RESPONSE_CODE));
    reply.status_text = text::to_valid_utf8(heads_.status_text());
    if (code == CURLE_OK) reply.body = decode_reply(body_, content_type());
    return reply;
}

void Exchange::fail(CURLcode code) {
    if (code == CURLE_OUT_OF_MEMORY) {
        if (is_sent_ && !heads_.is_complete() && is_memory_left()) throw http_headers_too_large();
        throw std::bad_alloc();
    }
    if (is_lost_) throw http_connection_lost();
    const long server = info<long>(easy_, CURLINFO_SSL_VERIFYRESULT);
    const long proxy = info<long>(easy_, CURLINFO_PROXY_SSL_VERIFYRESULT);
    throw http_error(code, server != 0 ? server : proxy, detail_.data());
}

std::string Exchange::content_type() {
    curl_header* header = nullptr;
    const CURLHcode code = curl_easy_header(easy_, "Content-Type", 0, CURLH_HEADER, -1, &header);
    return code == CURLHE_OK ? header->value : std::string();
}

/// A connection that was kept alive may die after the request went out and before a reply. The
/// library would send the request once more; but the server may have acted on it, and an enquiry
/// made twice is worse than an error.
bool Exchange::would_send_again() {
    if (!is_sent_ || is_heard_) return false;
    is_lost_ = info<long>(easy_, CURLINFO_REQUEST_SIZE) > request_bytes_before_;
    return is_lost_;
}

/// False when nothing more is to be read.
bool Exchange::take_header(std::string_view line) {
    if (!is_heard_ && record_ != nullptr) http_system::record_tls(easy_, *record_);
    is_heard_ = true;
    heads_.take(line);
    // The library asks for a tunnel again and again without a word to anyone.
    constexpr long kProxyRefuses = 407;
    is_given_up_ = heads_.is_complete() && heads_.is_refused() &&
                   info<long>(easy_, CURLINFO_HTTP_CONNECTCODE) == kProxyRefuses;
    return !is_given_up_;
}

void Exchange::take_body(std::string_view bytes) {
    if (bytes.size() > request_.max_reply_bytes - body_.size()) refuse_size();
    body_.append(bytes);
}

void Exchange::refuse_size() const {
    throw PlatformError(
        error_number::kInvalidReply,
        "The reply is larger than " + std::to_string(request_.max_reply_bytes) + " bytes");
}

std::size_t Exchange::on_header(char* data, std::size_t size, std::size_t count, void* self) {
    auto& exchange = *static_cast<Exchange*>(self);
    try {
        return exchange.take_header({data, size * count}) ? size * count : 0;
    } catch (...) {
        exchange.failure_ = std::current_exception();
        return 0;
    }
}

std::size_t Exchange::on_body(char* data, std::size_t size, std::size_t count, void* self) {
    auto& exchange = *static_cast<Exchange*>(self);
    try {
        exchange.take_body({data, size * count});
        return size * count;
    } catch (...) {
        exchange.failure_ = std::current_exception();
        return CURL_WRITEFUNC_ERROR;
    }
}

/// The name is resolved; each address that is tried has the whole limit to connect.
curl_socket_t Exchange::on_open_socket(void* self, curlsocktype /*purpose*/,
                                       curl_sockaddr* address) {
    auto& exchange = *static_cast<Exchange*>(self);
    if (exchange.would_send_again()) return CURL_SOCKET_BAD;
    exchange.clock_.enter(HttpPhase::kConnect, Clock::now());
    return http_system::open_socket(*address);
}

/// Connected, tunnel and TLS included; the request goes out next.
int Exchange::on_connected(void* self, char*, char*, int, int) {
    auto& exchange = *static_cast<Exchange*>(self);
    if (exchange.would_send_again()) return CURL_PREREQFUNC_ABORT;
    exchange.is_given_up_ = exchange.heads_.is_refused();
    if (exchange.is_given_up_) return CURL_PREREQFUNC_ABORT;
    try {
        http_system::check_connection(exchange.easy_, exchange.request_.url);
    } catch (...) {
        exchange.failure_ = std::current_exception();
        return CURL_PREREQFUNC_ABORT;
    }
    exchange.is_sent_ = true;
    exchange.is_heard_ = false;
    exchange.request_bytes_before_ = info<long>(exchange.easy_, CURLINFO_REQUEST_SIZE);
    exchange.clock_.enter(HttpPhase::kSend, Clock::now());
    return CURL_PREREQFUNC_OK;
}

class CurlTransport : public HttpTransport {
  public:
    explicit CurlTransport(HttpRecord* record) : record_(record) { initialise_library(); }

    HttpReply exchange(const HttpRequest& request) override {
        check_no_control_characters(request);
        make_ready();
        return Exchange(multi_.get(), sessions_.get(), request, record_).run();
    }

  private:
    /// Makes what the exchanges share, once there is one: it opens sockets, and many a facade only
    /// translates.
    void make_ready() {
        if (sessions_) return;
        multi_.reset(curl_multi_init());
        Share sessions(curl_share_init());
        if (!multi_ || !sessions ||
            curl_share_setopt(sessions.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION) !=
                CURLSHE_OK)
            throw std::bad_alloc();
        sessions_ = std::move(sessions);
    }

    HttpRecord* record_;
    Multi multi_;     // keeps the authorities that were read
    Share sessions_;  // keeps the TLS sessions, which a new connection may resume
};

}  // namespace

std::unique_ptr<HttpTransport> make_http_transport(HttpRecord* record) {
    return std::make_unique<CurlTransport>(record);
}

}  // namespace zr
