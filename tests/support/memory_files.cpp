#include "support/memory_files.h"

#include <algorithm>
#include <utility>

#include "automation/code_page.h"

namespace support {

using automation::ErrorNumber;
using automation::RunTimeError;

namespace {

RunTimeError file_error(ErrorNumber number, std::string_view path) {
    return {number, automation::standard_description(number) + ": " + std::string(path)};
}

// Parts of a path with "." and ".." carried out.
std::vector<std::string> parts_of(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const auto end = std::min(path.find_first_of("\\/"), path.size());
        const std::string_view part = path.substr(0, end);
        if (part == "..") {
            if (!parts.empty()) {
                parts.pop_back();
            }
        } else if (!part.empty() && part != ".") {
            parts.emplace_back(part);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

}  // namespace

class MemoryFiles::Reader final : public host::ByteStream {
  public:
    explicit Reader(std::shared_ptr<const Content> content) : content_(std::move(content)) {}

    [[nodiscard]] std::string read(std::size_t count) override {
        std::string bytes = at_end() ? "" : content_->bytes.substr(position_, count);
        position_ += bytes.size();
        return bytes;
    }

    [[nodiscard]] bool at_end() override { return position_ >= content_->bytes.size(); }

  private:
    std::shared_ptr<const Content> content_;
    std::size_t position_ = 0;
};

class MemoryFiles::Writer final : public host::TextStream {
  public:
    Writer(MemoryFiles& files, std::string_view path, std::shared_ptr<Content> content)
        : files_(files), path_(path), content_(std::move(content)) {}

    void Write(std::string_view text) override {
        files_.count_write(path_);
        files_.fill(*content_, content_->bytes + std::string(text));
    }

    void WriteLine(std::string_view line) override { Write(std::string(line) + "\r\n"); }

  private:
    MemoryFiles& files_;
    std::string path_;
    std::shared_ptr<Content> content_;
};

MemoryFiles::MemoryFiles(const host::Clock& clock) : clock_(clock) {
    put_folder("C:");
}

MemoryFiles::~MemoryFiles() = default;

// --- verbs of tests -----------------------------------------------------------------------------

void MemoryFiles::put(std::string_view file, std::string_view content) {
    const auto failing = std::exchange(writes_left_, std::nullopt);
    const auto name = file.find_last_of("\\/");
    put_folder(file.substr(0, name == std::string_view::npos ? 0 : name));
    write(file, content);
    writes_left_ = failing;
}

void MemoryFiles::put_folder(std::string_view folder) {
    const Place place = place_of(folder);
    if (!is_folder(place.key)) {
        put_folder(place.folder_key);
        entries_[place.key] = {place.name, nullptr};
    }
}

void MemoryFiles::fail_after(std::size_t writes, ErrorNumber error) {
    writes_left_ = writes;
    write_error_ = error;
}

void MemoryFiles::count_write(std::string_view path) {
    if (writes_left_ && (*writes_left_)-- == 0) {
        writes_left_ = 0;
        throw file_error(write_error_, path);
    }
}

// --- names --------------------------------------------------------------------------------------

MemoryFiles::Place MemoryFiles::place_of(std::string_view path) {
    Place place;
    for (std::string& part : parts_of(path)) {
        place.folder_key = place.key;
        place.key += (place.key.empty() ? "" : "\\") + automation::to_lower(part);
        place.name = std::move(part);
    }
    return place;
}

const MemoryFiles::Entry* MemoryFiles::find(const std::string& key) const {
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
}

bool MemoryFiles::is_folder(const std::string& key) const {
    const Entry* const entry = find(key);
    return key.empty() || (entry != nullptr && !entry->content);
}

bool MemoryFiles::FileExists(std::string_view path) {
    const Entry* const entry = find(place_of(path).key);
    return entry != nullptr && entry->content;
}

bool MemoryFiles::FolderExists(std::string_view path) {
    return !path.empty() && is_folder(place_of(path).key);
}

MemoryFiles::Content& MemoryFiles::existing_file(std::string_view path) {
    const Place place = place_of(path);
    const Entry* const entry = find(place.key);
    if (entry != nullptr && entry->content) {
        return *entry->content;
    }
    const bool folder_is_there = !path.empty() && is_folder(place.folder_key);
    throw file_error(folder_is_there ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound, path);
}

// --- folders ------------------------------------------------------------------------------------

void MemoryFiles::CreateFolder(std::string_view path) {
    const Place place = place_of(path);
    if (place.key.empty() || !is_folder(place.folder_key)) {
        throw file_error(ErrorNumber::PathNotFound, path);
    }
    if (find(place.key) != nullptr) {
        throw file_error(ErrorNumber::FileAlreadyExists, path);
    }
    count_write(path);
    entries_[place.key] = {place.name, nullptr};
}

std::vector<const MemoryFiles::Entry*> MemoryFiles::entries_in(std::string_view folder) const {
    const std::string folder_key = place_of(folder).key;
    if (folder.empty() || !is_folder(folder_key)) {
        throw file_error(ErrorNumber::PathNotFound, folder);
    }
    std::vector<const Entry*> entries;
    for (const auto& [key, entry] : entries_) {
        if (place_of(key).folder_key == folder_key) {
            entries.push_back(&entry);
        }
    }
    return entries;
}

std::vector<host::FileEntry> MemoryFiles::files_in(std::string_view folder) {
    std::vector<host::FileEntry> files;
    for (const Entry* const entry : entries_in(folder)) {
        if (entry->content) {
            files.push_back(describe(std::string(folder) + "\\" + entry->name));
        }
    }
    return files;
}

std::vector<std::string> MemoryFiles::folders_in(std::string_view folder) {
    std::vector<std::string> names;
    for (const Entry* const entry : entries_in(folder)) {
        if (!entry->content) {
            names.push_back(entry->name);
        }
    }
    return names;
}

host::FolderNames MemoryFiles::names_in(std::string_view folder) {
    host::FolderNames names;
    for (const Entry* const entry : entries_in(folder)) {
        (entry->content ? names.files : names.folders).push_back(entry->name);
    }
    return names;
}

// --- files --------------------------------------------------------------------------------------

host::FileEntry MemoryFiles::describe(std::string_view file) {
    const Content& content = existing_file(file);
    return {.name = find(place_of(file).key)->name,
            .size = static_cast<std::int64_t>(content.bytes.size()),
            .last_modified = content.last_modified};
}

std::string MemoryFiles::read(std::string_view file) {
    return existing_file(file).bytes;
}

std::shared_ptr<MemoryFiles::Content> MemoryFiles::file_for_writing(std::string_view path) {
    const Place place = place_of(path);
    if (place.key.empty() || !is_folder(place.folder_key)) {
        throw file_error(ErrorNumber::PathNotFound, path);
    }
    if (is_folder(place.key)) {
        throw file_error(ErrorNumber::PermissionDenied, path);
    }
    count_write(path);
    Entry& entry = entries_.try_emplace(place.key, Entry{place.name, nullptr}).first->second;
    if (!entry.content) {
        entry.content = std::make_shared<Content>();
        entry.content->last_modified = clock_.now();
    }
    return entry.content;
}

void MemoryFiles::fill(Content& content, std::string_view bytes) const {
    content.bytes = bytes;
    content.last_modified = clock_.now();
}

void MemoryFiles::write(std::string_view file, std::string_view content) {
    fill(*file_for_writing(file), content);
}

void MemoryFiles::CopyFile(std::string_view source, std::string_view target) {
    const std::string bytes = read(source);
    if (place_of(source).key == place_of(target).key) {
        throw file_error(ErrorNumber::PermissionDenied, target);
    }
    write(target, bytes);
}

void MemoryFiles::DeleteFile(std::string_view file) {
    (void)existing_file(file);
    entries_.erase(place_of(file).key);
}

std::unique_ptr<host::ByteStream> MemoryFiles::open_for_reading(std::string_view file) {
    (void)existing_file(file);
    return std::make_unique<Reader>(find(place_of(file).key)->content);
}

std::unique_ptr<host::TextStream> MemoryFiles::open_for_appending(std::string_view file) {
    return std::make_unique<Writer>(*this, file, file_for_writing(file));
}

std::unique_ptr<host::TextStream> MemoryFiles::create_text_file(std::string_view file) {
    const auto content = file_for_writing(file);
    fill(*content, "");
    return std::make_unique<Writer>(*this, file, content);
}

}  // namespace support
