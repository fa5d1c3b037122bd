// Uses any text as a checked script, and also as the output of a console.
#include "script/Script.h"
#include "script/Screen.h"

#include <cassert>
#include <stdexcept>

namespace
{

// Returns the lines of a recording when the console prints the text in two pieces.
std::vector<std::string> Recorded(const std::string& text, std::size_t piece)
{
    script::Screen screen;
    std::vector<std::string> lines;
    const auto onLine = [&](const script::PrintedLine& line) { lines.push_back(line.whole); };
    screen.Add(std::string_view(text).substr(0, piece), onLine);
    screen.Add(std::string_view(text).substr(piece), onLine);
    screen.Finish(onLine);
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(data, data + size);
    const auto printed = Recorded(text, size / 2);
    assert(printed == Recorded(text, 0));
    for (const std::string& line : printed) { // the script line that is recorded for a printed line must match it
        for (const bool likePrompt : {false, true}) {
            const auto awaited = script::ParseScript("(fuzz)", script::LineFor(line, likePrompt) + "\r\n");
            assert(line.empty() || (awaited.size() == 1 && awaited[0].Matches(line)));
        }
    }
    try {
        for (const script::Line& line : script::ParseScript("(fuzz)", text)) {
            for (const std::string& other : printed) {
                line.Matches(other);
                const auto word = line.WordAt(other);
                assert(!word || other + *word == line.Text());
                script::IsCertain(other + ">", line.Text());
            }
        }
    } catch (const std::runtime_error& error) {
        assert(std::string(error.what()).find('\n') == std::string::npos);
    }
    return 0;
}
