// Owner of a control object of the TV service.
#pragma once

#include "debugutil/Console.h"
#include "tvs-api/TVServiceAPI.h"

#include <exception>
#include <utility>

/// Runs `release` at the end of a scope that was entered with that many uncaught exceptions. An exception of `release`
/// reaches the caller, unless another exception is leaving the scope.
template <class Release> void ReleaseAtEndOfScope(int exceptionsAtEntry, Release release)
{
    if (std::uncaught_exceptions() == exceptionsAtEntry) {
        release();
        return;
    }
    try {
        release();
    } catch (...) { // NOLINT(bugprone-empty-catch): the other exception goes on
    }
}

/// Owns a control object, or null, and releases it at the end of the scope.
template <class Interface> class TCControl
{
public:
    TCControl() = default;
    explicit TCControl(Interface* control) : m_control(control) {}
    TCControl(TCControl&& other) noexcept : m_control(std::exchange(other.m_control, nullptr)) {}
    TCControl& operator=(TCControl&& other) noexcept
    {
        std::swap(m_control, other.m_control);
        return *this;
    }
    TCControl(const TCControl&) = delete;
    TCControl& operator=(const TCControl&) = delete;

    ~TCControl() noexcept(false)
    {
        if (m_control != nullptr)
            ReleaseAtEndOfScope(m_exceptions, [this] { TVServiceAPI::Destroy(m_control); });
    }

    explicit operator bool() const { return m_control != nullptr; }
    Interface* operator->() const { return m_control; }
    Interface& operator*() const { return *m_control; }

private:
    Interface* m_control = nullptr;
    int m_exceptions = std::uncaught_exceptions(); // when this object was created; a move does not copy it
};

/// Takes over the object of a factory. If the factory failed, prints `failure` (unless null), releases the object (if
/// there is one) and returns null.
template <class Interface> TCControl<Interface> AdoptControl(int result, Interface* created, const char* failure)
{
    TCControl<Interface> control(created);
    if (result == 0 && control)
        return control;
    if (failure != nullptr)
        console::Write(failure);
    return {};
}

/// Creates an object for a pipeline; null if the factory fails.
template <class Interface>
TCControl<Interface> CreateControl(const char* failure, int (*factory)(EProfile, int, Interface**), EProfile profile,
                                   int screenId)
{
    Interface* created = nullptr;
    const int result = factory(profile, screenId, &created);
    return AdoptControl(result, created, failure);
}

/// Creates an object without a pipeline; null if the factory fails.
template <class Interface> TCControl<Interface> CreateControl(const char* failure, int (*factory)(Interface**))
{
    Interface* created = nullptr;
    const int result = factory(&created);
    return AdoptControl(result, created, failure);
}
