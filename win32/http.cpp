#include "win32/http.h"

#include <array>
#include <atomic>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "win32/wide.h"

namespace vintrel::win32 {
namespace {

using platform::TransferState;

/// Orders set shorter limits of their own; these keep the system's threads from lingering after one was given up.
constexpr int kSystemLimit = 15000;

class InternetHandle {
 public:
    explicit InternetHandle(HINTERNET handle) : handle_(handle) {}
    ~InternetHandle() {
        if (handle_ != nullptr) WinHttpCloseHandle(handle_);
    }
    InternetHandle(const InternetHandle&) = delete;
    InternetHandle& operator=(const InternetHandle&) = delete;
    HINTERNET Get() const { return handle_; }

 private:
    HINTERNET handle_;
};

/// What WinHTTP's threads tell the host's thread. One operation is under way at a time. It lives until WinHTTP has
/// closed the request, which may be after the transfer was given up.
struct Progress {
    explicit Progress(DWORD waiting_thread) : thread(waiting_thread) {}

    void Report(DWORD status, DWORD read_bytes) {
        bytes = read_bytes;
        completed.store(status, std::memory_order_release);
        PostThreadMessageW(thread, WM_NULL, 0, 0);  // ends the wait of the message loop
    }

    const DWORD thread;
    std::atomic<DWORD> completed{0};  ///< WINHTTP_CALLBACK_STATUS_..., 0 when nothing new has happened
    DWORD bytes = 0;
    std::array<char, 8192> buffer{};
};

/// Runs on any thread, also within a call of WinHTTP, and touches nothing but the progress.
void CALLBACK OnStatus(HINTERNET /*handle*/, DWORD_PTR context, DWORD status, void* /*information*/,
                       DWORD length) noexcept {
    auto* const progress = reinterpret_cast<std::shared_ptr<Progress>*>(context);  // NOLINT(performance-no-int-to-ptr)
    if (progress == nullptr) return;
    switch (status) {
        case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
        case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
        case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR: (*progress)->Report(status, 0); break;
        case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: (*progress)->Report(status, length); break;
        case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING: delete progress; break;  // the last word about a handle
        default: break;
    }
}

void SetOption(HINTERNET handle, DWORD option, DWORD value) { WinHttpSetOption(handle, option, &value, sizeof value); }

class HttpTransfer : public platform::Transfer {
 public:
    HttpTransfer(HINTERNET connection, HINTERNET request, const platform::HttpRequest& settings)
        : connection_(connection),
          request_(request),
          progress_(std::make_shared<Progress>(GetCurrentThreadId())),
          user_(WideCopy(settings.user)),
          password_(WideCopy(settings.password)) {}
    ~HttpTransfer() override { SecureZeroMemory(password_.data(), password_.size() * sizeof(wchar_t)); }
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;

    bool Begin(const platform::HttpRequest& settings) {
        // Handed to WinHTTP, and freed by the callback when the request is closed.
        auto context = std::make_unique<std::shared_ptr<Progress>>(progress_);
        auto value = reinterpret_cast<DWORD_PTR>(context.get());
        if (WinHttpSetOption(request_.Get(), WINHTTP_OPTION_CONTEXT_VALUE, &value, sizeof value) == FALSE) return false;
        constexpr DWORD kEvents = WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES;
        if (WinHttpSetStatusCallback(request_.Get(), OnStatus, kEvents, 0) == WINHTTP_INVALID_STATUS_CALLBACK)
            return false;
        static_cast<void>(context.release());

        SetOption(request_.Get(), WINHTTP_OPTION_DISABLE_FEATURE, WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_COOKIES);
        SetOption(request_.Get(), WINHTTP_OPTION_AUTOLOGON_POLICY, WINHTTP_AUTOLOGON_SECURITY_LEVEL_HIGH);
        if (settings.ignored_certificate_errors != 0)
            SetOption(request_.Get(), WINHTTP_OPTION_SECURITY_FLAGS, settings.ignored_certificate_errors);
        const std::wstring header = WideCopy(settings.header);
        if (!header.empty() && WinHttpAddRequestHeaders(request_.Get(), header.c_str(), static_cast<DWORD>(-1),
                                                        WINHTTP_ADDREQ_FLAG_ADD) == FALSE)
            return false;
        return Send();
    }

    platform::TransferState State() override {
        Advance();
        return state_;
    }

    void Receive(std::string& answer, std::size_t limit) override {
        Advance();
        while (limit > 0 && taken_ < available_) {
            const std::size_t count = std::min(limit, available_ - taken_);
            answer.append(progress_->buffer.data() + taken_, count);
            taken_ += count;
            limit -= count;
            if (taken_ == available_) Read();
            Advance();
        }
    }

 private:
    bool Send() {
        return WinHttpSendRequest(request_.Get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, 0, 0) !=
               FALSE;
    }

    void Read() {
        available_ = taken_ = 0;
        const auto size = static_cast<DWORD>(progress_->buffer.size());
        if (WinHttpReadData(request_.Get(), progress_->buffer.data(), size, nullptr) == FALSE)
            state_ = platform::TransferState::Failed;
    }

    /// Takes the next step, when WinHTTP has finished the last one.
    void Advance() {
        switch (progress_->completed.exchange(0, std::memory_order_acquire)) {
            case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
                state_ = WinHttpReceiveResponse(request_.Get(), nullptr) == FALSE ? platform::TransferState::Failed
                                                                                  : platform::TransferState::Open;
                break;
            case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
                if (!AnswerChallenge()) Read();
                break;
            case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
                available_ = progress_->bytes;
                if (available_ == 0) state_ = platform::TransferState::Finished;
                break;
            case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR: state_ = platform::TransferState::Failed; break;
            default: break;
        }
    }

    /// A 401 is answered once with the credentials; a second one is the answer. True when the request goes out again.
    bool AnswerChallenge() {
        DWORD status = 0;
        DWORD size = sizeof status;
        if (challenged_ ||
            WinHttpQueryHeaders(request_.Get(), WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                                WINHTTP_HEADER_NAME_BY_INDEX, &status, &size, WINHTTP_NO_HEADER_INDEX) == FALSE ||
            status != HTTP_STATUS_DENIED)
            return false;
        challenged_ = true;
        DWORD schemes = 0;
        DWORD first = 0;
        DWORD target = 0;
        if (WinHttpQueryAuthSchemes(request_.Get(), &schemes, &first, &target) == FALSE) return false;
        const DWORD scheme =
            (schemes & WINHTTP_AUTH_SCHEME_DIGEST) != 0 ? WINHTTP_AUTH_SCHEME_DIGEST : WINHTTP_AUTH_SCHEME_BASIC;
        if (target != WINHTTP_AUTH_TARGET_SERVER || (schemes & scheme) == 0) return false;
        return WinHttpSetCredentials(request_.Get(), target, scheme, user_.c_str(), password_.c_str(), nullptr) !=
                   FALSE &&
               Send();
    }

    InternetHandle connection_;
    InternetHandle request_;  // closed first
    std::shared_ptr<Progress> progress_;
    std::wstring user_;
    std::wstring password_;
    platform::TransferState state_ = platform::TransferState::Starting;
    bool challenged_ = false;
    std::size_t available_ = 0;  ///< bytes in the buffer
    std::size_t taken_ = 0;      ///< of them
};

/// WinHTTP's threads may still be on their way out of OnStatus when the last request is closed: this module then has
/// to be there.
void KeepThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(&OnStatus), &module);
}

bool ReachesThePeerAsItIs(const platform::HttpRequest& request) {
    for (const std::u16string_view text : {request.host, request.target, request.user, request.password})
        if (text.find(u'\0') != std::u16string_view::npos) return false;
    return !request.host.empty() && request.port >= 0 && request.port <= 65535;
}

}  // namespace

bool RequestEngine::Prepare() {
    if (session_ != nullptr) return true;
    session_ = WinHttpOpen(L"Vintrel", WINHTTP_ACCESS_TYPE_NO_PROXY, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS,
                           WINHTTP_FLAG_ASYNC);
    if (session_ == nullptr) return false;
    KeepThisModule();
    WinHttpSetTimeouts(session_, kSystemLimit, kSystemLimit, kSystemLimit, kSystemLimit);
    // Older systems leave it out by default.
    SetOption(
        session_, WINHTTP_OPTION_SECURE_PROTOCOLS,
        WINHTTP_FLAG_SECURE_PROTOCOL_TLS1 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_1 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2);
    return true;
}

std::unique_ptr<platform::Transfer> RequestEngine::Start(const platform::HttpRequest& request) {
    if (!ReachesThePeerAsItIs(request) || !Prepare()) return nullptr;
    const HINTERNET connection =
        WinHttpConnect(session_, WideCopy(request.host).c_str(), static_cast<INTERNET_PORT>(request.port), 0);
    if (connection == nullptr) return nullptr;
    const HINTERNET handle =
        WinHttpOpenRequest(connection, WideCopy(request.method).c_str(), WideCopy(request.target).c_str(), nullptr,
                           WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES, request.secure ? WINHTTP_FLAG_SECURE : 0);
    if (handle == nullptr) {
        WinHttpCloseHandle(connection);
        return nullptr;
    }
    auto transfer = std::make_unique<HttpTransfer>(connection, handle, request);
    if (!transfer->Begin(request)) return nullptr;
    return transfer;
}

}  // namespace vintrel::win32
