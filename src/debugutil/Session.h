// Owning a control object of the TV service.
#pragma once

#include "debugutil/Console.h"
#include "tvs-api/TVServiceAPI.h"

#include <exception>
#include <iostream>
#include <memory>
#include <string>

struct TCSessionDestroyer {
    // Runs on every way out of a command, exceptions included, so it must not throw one itself.
    void operator()(ITvsSession* session) const noexcept
    {
        try {
            TVServiceAPI::Destroy(session);
        } catch (const std::exception& error) {
            std::cerr << std::string("TVServiceAPI::Destroy: ") + error.what() + "\n";
        }
    }
};

/// A control object, released at the end of its scope.
template <class Control> using TCSession = std::unique_ptr<Control, TCSessionDestroyer>;

/// Takes over what a factory returned and wrote. Null if the factory failed: what there is of the object is released.
template <class Control> TCSession<Control> AdoptSession(int result, Control* created)
{
    TCSession<Control> session(created);
    if (result != 0)
        session.reset();
    return session;
}

/// Makes an object for a pipeline; null if the factory fails.
template <class Control>
TCSession<Control> CreateSession(int (*factory)(EProfile, int, Control**), EProfile profile, int screenId)
{
    Control* created = nullptr;
    const int result = factory(profile, screenId, &created);
    return AdoptSession(result, created);
}

/// Makes an object that belongs to no pipeline; null if the factory fails.
template <class Control> TCSession<Control> CreateSession(int (*factory)(Control**))
{
    Control* created = nullptr;
    const int result = factory(&created);
    return AdoptSession(result, created);
}

/// Makes an object, or prints that text. The other arguments are those of CreateSession.
template <class Factory, class... Arguments>
auto CreateOrReport(const char* failure, Factory factory, Arguments... arguments)
{
    auto session = CreateSession(factory, arguments...);
    if (!session)
        console::Write(failure);
    return session;
}
