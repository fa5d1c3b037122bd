#include "script/Player.h"
#include "script/Recorder.h"

#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace
{

constexpr double kMaxSeconds = 86400;

struct Options {
    double seconds = 10;
    gboolean tap = FALSE;
    gboolean record = FALSE;
    gboolean version = FALSE;
};

// Files that are opened later must not get the descriptor of a standard stream.
void OpenStandardStreams()
{
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) == -1)
            static_cast<void>(open("/dev/null", O_RDWR)); // gets the lowest free number
}

// Removes the options; FILE, COMMAND and its arguments are left.
Options Parse(int* count, char*** arguments)
{
    Options options;
    const GOptionEntry entries[] = {
        {"timeout", 't', 0, G_OPTION_ARG_DOUBLE, &options.seconds,
         "Await each line, and the end of the command, for that time; 10 by default", "SECONDS"},
        {"tap", 0, 0, G_OPTION_ARG_NONE, &options.tap, "Print a line in TAP for each step", nullptr},
        {"record", 0, 0, G_OPTION_ARG_NONE, &options.record, "Write the session to FILE as a script", nullptr},
        {"version", 0, 0, G_OPTION_ARG_NONE, &options.version, "Print the version", nullptr},
        {}};
    const std::unique_ptr<GOptionContext, decltype(&g_option_context_free)> context(
        g_option_context_new("FILE [COMMAND [ARGUMENT...]]"), g_option_context_free);
    g_option_context_set_summary(context.get(), "Plays a checked script, or records one. The command is DebugUtil, or "
                                                "for example: ssh set-1 DebugUtil");
    g_option_context_add_main_entries(context.get(), entries, nullptr);
    g_option_context_set_strict_posix(context.get(), TRUE); // options after FILE belong to the command
    g_autoptr(GError) error = nullptr;
    g_option_context_parse(context.get(), count, arguments, &error);
    std::string problem;
    if (error != nullptr) {
        problem = error->message;
    } else if (!(options.seconds > 0 && options.seconds <= kMaxSeconds)) {
        problem = "SECONDS is not between 0 and 86400";
    } else if (options.version == FALSE && *count < 2) {
        problem = "no FILE";
    } else if (options.tap != FALSE && options.record != FALSE) {
        problem = "--tap and --record exclude each other";
    }
    if (!problem.empty())
        throw std::runtime_error(problem + "; try debugutil-script --help");
    return options;
}

} // namespace

int main(int count, char** arguments)
{
    OpenStandardStreams();
    try {
        const Options options = Parse(&count, &arguments);
        if (options.version != FALSE) {
            std::cout << "debugutil-script " SCRIPT_VERSION "\n";
            return EXIT_SUCCESS;
        }
        char** const words = arguments + (std::string(arguments[1]) == "--" ? 2 : 1);
        const std::string file = words[0];
        std::vector<std::string> command(words + 1, arguments + count);
        if (command.empty())
            command = {"DebugUtil"};
        const std::chrono::milliseconds limit(static_cast<long>(options.seconds * 1000));
        const bool passed =
            options.record != FALSE
                ? script::Recorder(file, limit).Record(command)
                : script::Player(file, script::ReadScript(file), limit, options.tap != FALSE).Play(command);
        return passed ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::runtime_error& error) {
        std::cerr << std::string("debugutil-script: ") + error.what() + "\n";
        return 2;
    }
}
