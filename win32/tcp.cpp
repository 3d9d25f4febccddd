#include "win32/tcp.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <array>
#include <atomic>
#include <string>
#include <utility>

#include "text/numbers.h"
#include "text/text.h"
#include "win32/wide.h"

namespace vintrel::win32 {
namespace {

using platform::TransferState;

/// Winsock for as long as somebody uses it here.
class Winsock {
 public:
    Winsock() {
        WSADATA data;
        started_ = WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }
    ~Winsock() {
        if (started_) WSACleanup();
    }
    Winsock(const Winsock&) = delete;
    Winsock& operator=(const Winsock&) = delete;
    explicit operator bool() const { return started_; }

 private:
    bool started_;
};

/// The addresses of a host. The lookup may outlive the connection that asked for it.
class Lookup {
 public:
    Lookup(std::u16string_view host, std::int32_t port)
        : host_(WideCopy(host)), port_(WideCopy(text::DecimalText(port))), thread_(GetCurrentThreadId()) {}
    ~Lookup() {
        if (addresses_ != nullptr) FreeAddrInfoW(addresses_);
    }
    Lookup(const Lookup&) = delete;
    Lookup& operator=(const Lookup&) = delete;

    /// An address needs no looking up, a name needs a thread. False when neither can be started.
    static bool Begin(const std::shared_ptr<Lookup>& lookup) {
        lookup->Run(AI_NUMERICHOST);
        if (lookup->addresses_ != nullptr) {
            lookup->done_ = true;
            return true;
        }
        // The thread runs code of this module and keeps it loaded meanwhile.
        HMODULE module = nullptr;
        if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const wchar_t*>(&OnThread),
                               &module) == FALSE)
            return false;
        auto order = std::make_unique<Order>(lookup, module);
        HANDLE thread = CreateThread(nullptr, 0, OnThread, order.get(), 0, nullptr);
        if (thread == nullptr) {
            FreeLibrary(module);
            return false;
        }
        static_cast<void>(order.release());
        CloseHandle(thread);
        return true;
    }

    bool Done() const { return done_; }
    const ADDRINFOW* Addresses() const { return addresses_; }

 private:
    using Order = std::pair<std::shared_ptr<Lookup>, HMODULE>;

    void Run(int flags) {
        ADDRINFOW hints{};
        hints.ai_flags = flags;
        hints.ai_family = AF_UNSPEC;
        hints.ai_socktype = SOCK_STREAM;
        if (GetAddrInfoW(host_.c_str(), port_.c_str(), &hints, &addresses_) != 0) addresses_ = nullptr;
    }

    static DWORD WINAPI OnThread(void* parameter) noexcept {
        HMODULE module = nullptr;
        {
            const std::unique_ptr<Order> order(static_cast<Order*>(parameter));
            module = order->second;
            const Winsock winsock;
            order->first->Run(0);
            order->first->done_ = true;
            PostThreadMessageW(order->first->thread_, WM_NULL, 0, 0);  // ends the wait of the message loop
        }
        FreeLibraryAndExitThread(module, 0);
    }

    std::wstring host_;
    std::wstring port_;
    DWORD thread_;
    ADDRINFOW* addresses_ = nullptr;
    std::atomic<bool> done_{false};
};

class TcpConnection : public platform::TcpConnection {
 public:
    TcpConnection() = default;
    ~TcpConnection() override {
        CloseSocket();
        if (window_ != nullptr) DestroyWindow(window_);
    }
    TcpConnection(const TcpConnection&) = delete;
    TcpConnection& operator=(const TcpConnection&) = delete;

    bool Begin(std::u16string_view host, std::int32_t port) {
        if (!winsock_) return false;
        // Takes the messages of the socket and does nothing with them: that they come is what ends a wait.
        window_ = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        if (window_ == nullptr) return false;
        lookup_ = std::make_shared<Lookup>(host, port);
        return Lookup::Begin(lookup_);
    }

    platform::TransferState State() override {
        if (state_ == platform::TransferState::Starting) Call();
        if (state_ == platform::TransferState::Open) Flush();
        return state_;
    }

    void Receive(std::string& answer, std::size_t limit) override {
        if (State() != platform::TransferState::Open) return;
        std::array<char, 4096> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): written before it is read
        while (limit > 0) {
            const int count = recv(socket_, buffer.data(), static_cast<int>(std::min(limit, buffer.size())), 0);
            if (count > 0) {
                answer.append(buffer.data(), static_cast<std::size_t>(count));
                limit -= static_cast<std::size_t>(count);
                continue;
            }
            if (count == 0) state_ = platform::TransferState::Finished;
            if (count < 0 && WSAGetLastError() != WSAEWOULDBLOCK) state_ = platform::TransferState::Failed;
            return;
        }
    }

    void Send(std::string_view bytes) override {
        outgoing_ += bytes;
        Flush();
    }

 private:
    /// Calls one address after the other, each when the one before has not answered.
    void Call() {
        if (socket_ != INVALID_SOCKET) {
            const int result = CallResult();
            if (result == 0) return;
            if (result > 0) {
                state_ = platform::TransferState::Open;
                return;
            }
            CloseSocket();
        } else if (!lookup_->Done()) {
            return;
        } else if (!calling_) {
            calling_ = true;
            next_ = lookup_->Addresses();
        }
        for (; next_ != nullptr && socket_ == INVALID_SOCKET; next_ = next_->ai_next) CallAddress(*next_);
        if (socket_ == INVALID_SOCKET) state_ = platform::TransferState::Failed;
    }

    void CallAddress(const ADDRINFOW& address) {
        socket_ = socket(address.ai_family, address.ai_socktype, address.ai_protocol);
        if (socket_ == INVALID_SOCKET) return;
        // Makes the socket non-blocking too.
        const bool started =
            WSAAsyncSelect(socket_, window_, WM_NULL, FD_CONNECT | FD_READ | FD_WRITE | FD_CLOSE) == 0 &&
            (connect(socket_, address.ai_addr, static_cast<int>(address.ai_addrlen)) == 0 ||
             WSAGetLastError() == WSAEWOULDBLOCK);
        if (!started) CloseSocket();
    }

    /// 1 connected, -1 refused, 0 not decided.
    int CallResult() const {
        fd_set connected;
        fd_set refused;
        FD_ZERO(&connected);
        FD_ZERO(&refused);
        connected.fd_count = refused.fd_count = 1;
        connected.fd_array[0] = refused.fd_array[0] = socket_;
        timeval at_once{};
        if (select(0, nullptr, &connected, &refused, &at_once) <= 0) return 0;
        return refused.fd_count > 0 ? -1 : 1;
    }

    /// What the system does not take now goes out at a later turn. A broken connection shows when it is read from.
    void Flush() {
        while (!outgoing_.empty()) {
            const int count = send(socket_, outgoing_.data(), static_cast<int>(outgoing_.size()), 0);
            if (count <= 0) return;
            outgoing_.erase(0, static_cast<std::size_t>(count));
        }
    }

    void CloseSocket() {
        if (socket_ != INVALID_SOCKET) closesocket(std::exchange(socket_, INVALID_SOCKET));
    }

    Winsock winsock_;
    HWND window_ = nullptr;
    std::shared_ptr<Lookup> lookup_;
    bool calling_ = false;
    const ADDRINFOW* next_ = nullptr;  ///< the address to call when this one refuses
    SOCKET socket_ = INVALID_SOCKET;
    platform::TransferState state_ = platform::TransferState::Starting;
    std::string outgoing_;
};

}  // namespace

std::unique_ptr<platform::TcpConnection> TcpClient::Connect(std::u16string_view host, std::int32_t port) {
    if (host.empty() || host.find(u'\0') != std::u16string_view::npos || port < 1 || port > 65535) return nullptr;
    auto connection = std::make_unique<TcpConnection>();
    if (!connection->Begin(host, port)) return nullptr;
    return connection;
}

}  // namespace vintrel::win32
