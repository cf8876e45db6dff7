#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <vector>

#include "icons.h"
#include "landscapes.h"
#include "picture_writer.h"

// Draws the pictures of a fresh home: the icons of the devices, two spacers, and a few pictures for
// the slideshow. The same program draws the same pictures.
namespace {

namespace fs = std::filesystem;

constexpr int kIconSide = 24;

void draw_icons(const fs::path& folder) {
    for (const tools::Icon& icon : tools::icons()) {
        std::vector<tools::Pixels> frames;
        for (const tools::Drawing& drawing : icon.frames) {
            frames.push_back(tools::rendered(drawing, kIconSide));
        }
        tools::write_gif(folder / icon.file, frames);
    }
}

// Transparent throughout: they keep a distance.
void draw_spacer(const fs::path& file, int side) {
    const auto pixels = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    tools::write_gif(file, {{side, side, std::vector<std::optional<tools::Colour>>(pixels)}});
}

void draw_all(const fs::path& html) {
    const fs::path icons = html / "images" / "Velora";
    const fs::path slides = html / "slides" / "pictures";
    fs::create_directories(icons);
    fs::create_directories(slides);
    draw_icons(icons);
    draw_spacer(icons / "blank3.gif", 3);
    draw_spacer(icons / "blank5x5.gif", 5);
    for (const tools::Landscape& landscape : tools::landscapes()) {
        tools::write_jpeg(slides / landscape.file, landscape.pixels);
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: draw_pictures HTML_FOLDER\n";
        return 2;
    }
    try {
        draw_all(arguments[1]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
