// Runs a console program on pipes.
#pragma once

#include "script/Screen.h"

#include <chrono>
#include <functional>
#include <gio/gio.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace script
{

/// Calls a function once on the main loop, unless it is stopped before.
class Timer
{
public:
    Timer() = default;
    ~Timer() { Stop(); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void Start(std::chrono::milliseconds delay, std::function<void()> function);
    void Stop();

private:
    static gboolean Expire(gpointer timer);
    std::function<void()> m_function;
    guint m_source = 0;
};

/// Runs the command once. All calls come on the thread of Run(), on the default main context.
class Session
{
public:
    /// `limit` is how long the command may run after the end of its input; then it is killed.
    explicit Session(std::chrono::milliseconds limit) : m_limit(limit) {}
    virtual ~Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

protected:
    /// Starts the command and returns when it has ended and all its output has been read. A SIGHUP, SIGINT or SIGTERM
    /// closes its input; when the command has ended, the process ends by that signal. Throws std::runtime_error if the
    /// command cannot be started.
    void m_Run(const std::vector<std::string>& command);
    /// Types the word and a line end. Returns false if that is not possible, or the word is longer than 4,095 bytes.
    bool m_Type(const std::string& word);
    void m_CloseInput();
    bool m_InputIsOpen() const { return m_input.has_value(); }
    /// Whether the command ended by itself with status 0.
    bool m_EndedWell() const;
    /// How the command ended, for example "the command ended with status 3"; empty while it runs.
    std::string m_Ending() const;
    std::chrono::milliseconds m_Limit() const { return m_limit; }

    /// The command has been started.
    virtual void m_OnStart() = 0;
    virtual void m_OnOutput(std::string_view /*output*/) {}
    virtual void m_OnLine(const PrintedLine& line) = 0;
    /// The tool waits at the prompt, and its input is open. Called again with `forLong` after 1 s, and after lines that
    /// were printed since.
    virtual void m_OnPrompt(const std::string& prompt, bool forLong) = 0;
    /// The command has ended and no signal has ended the session.
    virtual void m_OnEnd() = 0;

private:
    static gboolean OnReadable(int output, GIOCondition, gpointer session);
    static void OnExit(GObject*, GAsyncResult* result, gpointer session);
    void m_CatchSignals();
    void m_TakeSignals();
    void m_ReadOutput(int output);
    void m_EndOutput();
    void m_Settle(bool forLong);
    void m_QuitIfEnded();

    const std::chrono::milliseconds m_limit;
    std::unique_ptr<GSubprocess, decltype(&g_object_unref)> m_process{nullptr, g_object_unref};
    std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> m_loop{g_main_loop_new(nullptr, FALSE), g_main_loop_unref};
    Screen m_screen;
    Timer m_settling;
    Timer m_leaving;
    std::optional<int> m_input; // while it is open
    guint m_reader = 0;
    bool m_exited = false;
    bool m_killed = false;
    int m_signal = 0;
    gint64 m_signalTime = 0;
};

} // namespace script
