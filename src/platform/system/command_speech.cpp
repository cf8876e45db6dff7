#include "platform/system/command_speech.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <utility>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "host/files.h"
#include "platform/system/child_process.h"
#include "platform/system/disk_path.h"

namespace platform {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

constexpr std::chrono::minutes kLimit{1};

struct Placeholder {
    std::string_view name;
    std::string value;
};

using Placeholders = std::array<Placeholder, 3>;

std::vector<std::string> split_words(std::string_view line) {
    std::vector<std::string> words;
    bool in_quotes = false;
    bool in_word = false;
    for (const char character : line) {
        if (character == ' ' && !in_quotes) {
            in_word = false;
            continue;
        }
        if (!in_word) {
            words.emplace_back();
            in_word = true;
        }
        if (character == '"') {
            in_quotes = !in_quotes;
        } else {
            words.back() += character;
        }
    }
    return words;
}

// In one pass, so that a placeholder inside the spoken text stays text.
std::string fill_in(std::string_view word, const Placeholders& placeholders) {
    std::string filled;
    while (!word.empty()) {
        const auto* const found = std::ranges::find_if(
            placeholders,
            [&](const Placeholder& placeholder) { return word.starts_with(placeholder.name); });
        const bool is_placeholder = found != placeholders.end();
        filled += is_placeholder ? found->value : std::string(1, word.front());
        word.remove_prefix(is_placeholder ? found->name.size() : 1);
    }
    return filled;
}

std::string_view reason_of(ChildEnd end) {
    switch (end) {
        case ChildEnd::NotStarted:
            return " cannot be started";
        case ChildEnd::TimedOut:
            return " did not end";
        default:
            return " failed";
    }
}

}  // namespace

CommandSpeech::CommandSpeech(host::Files& files, std::string_view command,
                             std::vector<std::string> voices)
    : files_(files), words_(split_words(command)), voices_(std::move(voices)) {}

void CommandSpeech::Speak(std::string_view text, std::optional<std::size_t> voice,
                          std::string_view path, int format) {
    if (format != host::kSpeechFormat22kHz16BitMono || (voice && *voice >= voices_.size())) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    if (words_.empty()) {
        throw RunTimeError(ErrorNumber::ActiveXCannotCreateObject, "Speech: the command is empty");
    }
    files_.write(path, "");
    std::string spoken = automation::code_page_to_utf8(text);
    std::ranges::replace(spoken, '\0', ' ');
    const Placeholders placeholders{{
        {"{text}", spoken},
        {"{voice}", voice ? automation::code_page_to_utf8(voices_[*voice]) : std::string()},
        {"{file}", std::filesystem::absolute(disk_path(path).value()).native()},
    }};
    std::vector<std::string> words;
    for (const std::string& word : words_) {
        words.push_back(fill_in(word, placeholders));
    }
    const ChildEnd end = run_child(words, kLimit);
    if (end != ChildEnd::Success) {
        files_.write(path, "");
        throw RunTimeError(ErrorNumber::ActiveXCannotCreateObject,
                           "Speech: " + words_[0] + std::string(reason_of(end)));
    }
}

}  // namespace platform
