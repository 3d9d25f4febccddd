// The server as a host application sees it: its eight classes, created by ProgID, and nothing else of it.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Vintrel.h"
#include "host/failure.h"

namespace vintrel::host {

/// A BSTR variable, as the server's operations take and give them.
class Bstr {
 public:
    Bstr() = default;
    explicit Bstr(std::u16string_view text) { Assign(text); }
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    void Assign(std::u16string_view text);
    /// The bytes of a frame, each the character of its code. A text of the same length is written over in place.
    void AssignBytes(std::string_view bytes);
    std::u16string_view View() const;

    /// To pass as an in-place argument.
    BSTR* InOut() { return &text_; }
    /// To receive a result: frees what was there.
    BSTR* Out();

 private:
    BSTR text_ = nullptr;
};

template <typename Interface>
class ComPointer {
 public:
    ComPointer() = default;
    ~ComPointer() {
        if (object_) object_->Release();
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;
    Interface* Get() const { return object_; }
    Interface* operator->() const { return object_; }
    void** Receive() { return reinterpret_cast<void**>(&object_); }

 private:
    Interface* object_ = nullptr;
};

/// COM on this thread, a single-threaded apartment as the server asks for.
class Apartment {
 public:
    Apartment();
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// @throws Failure with the server's own description when a call has failed.
void CheckCall(HRESULT result);

class Server {
    Apartment apartment_;  // first in, last out

 public:
    /// Creates the eight classes. @throws Failure (NotRegistered) when that is not possible.
    Server();
    ~Server() = default;
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    ComPointer<_ServerInfo> info;
    ComPointer<_SetServerOptions> setup;
    ComPointer<_ComProgramSet> link;
    ComPointer<_ServiceEnabled> services;
    ComPointer<_ComEventsTX> tx;
    ComPointer<_ComEventsRX> rx;
    ComPointer<_ComGdvFilter> gdv;
    ComPointer<_PMSEvents> pms;

    /// Calls an operation whose last argument is its text.
    template <typename Class, typename Interface, typename... Parameters, typename... Arguments>
    std::u16string Text(const ComPointer<Class>& object,
                        HRESULT (STDMETHODCALLTYPE Interface::*operation)(Parameters...),
                        Arguments... arguments) const {
        Bstr result;
        CheckCall((object.Get()->*operation)(arguments..., result.Out()));
        return std::u16string(result.View());
    }
    /// Calls an operation whose last argument is its number.
    template <typename Number, typename Class, typename Interface, typename... Parameters, typename... Arguments>
    Number Value(const ComPointer<Class>& object, HRESULT (STDMETHODCALLTYPE Interface::*operation)(Parameters...),
                 Arguments... arguments) const {
        Number result = 0;
        CheckCall((object.Get()->*operation)(arguments..., &result));
        return result;
    }
};

/// The exchange model that the host works for.
class Model {
 public:
    /// @throws Failure (Usage) for a code that the server does not know; any case is accepted.
    Model(const Server& server, const std::string& code);

    const std::u16string& Code() const { return code_; }
    const std::u16string& Name() const { return name_; }

    // An operation that takes just the model's code.
    template <typename Class, typename Interface>
    std::u16string Text(const ComPointer<Class>& object,
                        HRESULT (STDMETHODCALLTYPE Interface::*operation)(BSTR*, BSTR*)) const {
        Bstr type(code_);
        return server_.Text(object, operation, type.InOut());
    }
    template <typename Class, typename Interface, typename Number>
    long Value(const ComPointer<Class>& object,
               HRESULT (STDMETHODCALLTYPE Interface::*operation)(BSTR*, Number*)) const {
        Bstr type(code_);
        return server_.Value<Number>(object, operation, type.InOut());
    }

 private:
    const Server& server_;
    std::u16string code_;
    std::u16string name_;
};

/// The codes that the server knows, in the order of their numbers.
std::vector<std::string> AllCodes(const Server& server);

/// Lets the server read its configuration files for the model, as a host does at its start.
/// @param folder  of "Quindara.cfg" and "Vintrel.ini"; "" leaves the server's settings empty
void Initialize(const Server& server, const Model& model, const std::string& folder);

}  // namespace vintrel::host
