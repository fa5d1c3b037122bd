// Owning a control object of the TV service.
#pragma once

#include "debugutil/Console.h"
#include "tvs-api/TVServiceAPI.h"

#include <exception>
#include <memory>
#include <utility>

/// Runs a release at the end of a scope that was entered with that many exceptions on their way. An exception of the
/// release goes on to the caller, unless another one is on its way already: that one tells the story.
template <class Release> void ReleaseAtEndOfScope(int exceptionsAtEntry, Release release)
{
    if (std::uncaught_exceptions() == exceptionsAtEntry) {
        release();
        return;
    }
    try {
        release();
    } catch (...) { // NOLINT(bugprone-empty-catch): see above
    }
}

/// A control object, released at the end of its scope; may be null.
template <class Control> class TCSession
{
public:
    TCSession() = default;
    explicit TCSession(Control* control) : m_control(control) {}
    TCSession(TCSession&& other) noexcept : m_control(std::exchange(other.m_control, nullptr)) {}
    TCSession& operator=(TCSession&& other) noexcept
    {
        std::swap(m_control, other.m_control);
        return *this;
    }
    TCSession(const TCSession&) = delete;
    TCSession& operator=(const TCSession&) = delete;

    ~TCSession() noexcept(false)
    {
        if (m_control != nullptr)
            ReleaseAtEndOfScope(m_exceptions, [this] { TVServiceAPI::Destroy(m_control); });
    }

    explicit operator bool() const { return m_control != nullptr; }
    Control* operator->() const { return m_control; }
    Control& operator*() const { return *m_control; }

private:
    Control* m_control = nullptr;
    int m_exceptions = std::uncaught_exceptions();
};

/// Takes over what a factory returned and wrote. If it failed, prints that text (unless null), releases what there is of
/// the object and returns null.
template <class Control> TCSession<Control> AdoptSession(int result, Control* created, const char* failure)
{
    TCSession<Control> session(created);
    if (result == 0 && session)
        return session;
    if (failure != nullptr)
        console::Write(failure);
    return {};
}

/// Makes an object for a pipeline; null if the factory fails.
template <class Control>
TCSession<Control> CreateSession(const char* failure, int (*factory)(EProfile, int, Control**), EProfile profile,
                                 int screenId)
{
    Control* created = nullptr;
    const int result = factory(profile, screenId, &created);
    return AdoptSession(result, created, failure);
}

/// Makes an object that belongs to no pipeline; null if the factory fails.
template <class Control> TCSession<Control> CreateSession(const char* failure, int (*factory)(Control**))
{
    Control* created = nullptr;
    const int result = factory(&created);
    return AdoptSession(result, created, failure);
}
