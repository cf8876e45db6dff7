#include "landscapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tools {
namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 480;

// --- noise --------------------------------------------------------------------------------------

// The same number, 0 to 1, for the same place.
double random_at(int x, int y, std::uint32_t seed) {
    std::uint32_t hash = static_cast<std::uint32_t>(x) * 374761393U +
                         static_cast<std::uint32_t>(y) * 668265263U + seed * 2246822519U;
    hash = (hash ^ (hash >> 13U)) * 1274126177U;
    hash ^= hash >> 16U;
    return hash / 4294967295.0;
}

double smooth(double part) {
    return part * part * (3 - 2 * part);
}

// 0 below `from`, 1 above `to`, and smoothly between.
double step(double from, double to, double value) {
    return smooth(std::clamp((value - from) / (to - from), 0.0, 1.0));
}

double noise(double x, double y, std::uint32_t seed) {
    const double left = std::floor(x);
    const double top = std::floor(y);
    const double right_part = smooth(x - left);
    const auto at = [&](int dx, int dy) {
        return random_at(static_cast<int>(left) + dx, static_cast<int>(top) + dy, seed);
    };
    const double upper = std::lerp(at(0, 0), at(1, 0), right_part);
    const double lower = std::lerp(at(0, 1), at(1, 1), right_part);
    return std::lerp(upper, lower, smooth(y - top));
}

// Noise in ever finer grains, about 0.5 in the mean.
double clouds(double x, double y, std::uint32_t seed, int grains) {
    double sum = 0;
    double weight = 0.5;
    for (int grain = 0; grain < grains; ++grain) {
        sum += weight * noise(x, y, seed + static_cast<std::uint32_t>(grain));
        x *= 2.03;
        y *= 2.03;
        weight /= 2;
    }
    return sum;
}

// --- parts of a landscape -----------------------------------------------------------------------

// Three colours from above to below; the middle one at `middle` of the way.
Colour sky(double part, const Colour& upper, const Colour& centre, const Colour& lower,
           double middle) {
    return part < middle ? mixed(upper, centre, part / middle)
                         : mixed(centre, lower, (part - middle) / (1 - middle));
}

// How bright the air is around a light.
double glow(double x, double y, Point light, double reach) {
    const double distance = std::hypot(x - light.x, y - light.y);
    return std::exp(-distance / reach);
}

// A disc with a soft edge.
double disc(double x, double y, Point centre, double radius) {
    return 1 - step(radius - 1.2, radius + 1.2, std::hypot(x - centre.x, y - centre.y));
}

// The row in which a chain of hills begins.
struct Ridge {
    double row = 0;
    double height = 0;  // from its valleys to its tops
    double length = 0;  // from one top to the next, about
    int grains = 0;     // 2 for meadows, 6 for rocks
    std::uint32_t seed = 0;

    [[nodiscard]] double top(double x) const {
        return row - height * (clouds(x / length, 0.5, seed, grains) - 0.25) * 2;
    }
};

// 1 below the ridge, 0 above it, with an edge of about one pixel.
double below(const Ridge& ridge, double x, double y) {
    return std::clamp(y - ridge.top(x) + 0.5, 0.0, 1.0);
}

// Pixels of a picture that is told as a function of the place, with four samples each.
template <typename ColourAt>
Pixels painted(ColourAt&& colour_at) {
    Pixels pixels{kWidth, kHeight, {}};
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const Colour upper =
                mixed(colour_at(x + 0.25, y + 0.25), colour_at(x + 0.75, y + 0.25), 0.5);
            const Colour lower =
                mixed(colour_at(x + 0.25, y + 0.75), colour_at(x + 0.75, y + 0.75), 0.5);
            pixels.colours.emplace_back(mixed(upper, lower, 0.5));
        }
    }
    return pixels;
}

// --- a lake in the evening ----------------------------------------------------------------------

constexpr double kShore = 300;
constexpr Point kEveningSun{573, 212};

Colour evening_above(double x, double y) {
    Colour colour = sky(y / kShore, rgb(0x2C3A78), rgb(0xC9627F), rgb(0xFFC078), 0.62);
    const double veil = step(0.46, 0.78, clouds(x / 260, y / 46, 11, 5)) * step(0, 120, y);
    colour = mixed(colour, rgb(0xFFB59A), 0.55 * veil);
    colour = mixed(colour, rgb(0xFFF0C2), 0.8 * glow(x, y, kEveningSun, 90));
    colour = mixed(colour, rgb(0xFFFBE6), disc(x, y, kEveningSun, 26));

    const struct {
        Ridge ridge;
        Colour colour;
    } chains[] = {
        {{.row = 250, .height = 95, .length = 190, .grains = 6, .seed = 21}, rgb(0x8A5A86)},
        {{.row = 280, .height = 75, .length = 150, .grains = 6, .seed = 35}, rgb(0x5E4478)},
        {{.row = 302, .height = 38, .length = 120, .grains = 5, .seed = 44}, rgb(0x35305C)},
    };

    for (const auto& chain : chains) {
        const double haze = 0.45 * step(chain.ridge.top(x), kShore + 20, y);
        const Colour slope = mixed(chain.colour, rgb(0xF0A07E), haze);
        colour = mixed(colour, slope, below(chain.ridge, x, y));
    }
    return colour;
}

Colour evening(double x, double y) {
    if (y < kShore) {
        return evening_above(x, y);
    }
    // The water shows what is above it, upside down and broken by waves that grow towards us.
    const double depth = (y - kShore) / (kHeight - kShore);
    const double waves = noise(x / (22 + 60 * depth), y / (1.2 + 5 * depth), 71) - 0.5;
    const double mirrored = kShore - (y - kShore) * 1.25 + waves * 34 * depth;
    Colour colour = evening_above(x + waves * 10, std::clamp(mirrored, 0.0, kShore - 1));
    colour = mixed(colour, rgb(0x27305F), 0.22 + 0.3 * depth);
    const double path = std::exp(-std::abs(x - kEveningSun.x) / (26 + 90 * depth));
    return mixed(colour, rgb(0xFFE3A8), 0.75 * path * step(0.05, 0.3, waves + 0.1));
}

// --- hills in the morning -----------------------------------------------------------------------

constexpr Point kMorningSun{150, 92};

Colour morning(double x, double y) {
    Colour colour = sky(y / 340, rgb(0x3F8FDB), rgb(0x8CC7F2), rgb(0xE9F5F4), 0.55);
    colour = mixed(colour, rgb(0xFFF6CF), 0.85 * glow(x, y, kMorningSun, 70));
    colour = mixed(colour, rgb(0xFFFDF0), disc(x, y, kMorningSun, 30));
    const double cloud = clouds(x / 170 + 3, y / 70, 5, 6);
    const double cover = step(0.5, 0.68, cloud) * step(20, 80, y) * (1 - step(190, 270, y));
    colour =
        mixed(colour, mixed(rgb(0xFFFFFF), rgb(0xC9D9E8), step(0.55, 0.8, cloud)), 0.92 * cover);

    const struct {
        Ridge ridge;
        Colour top;
        Colour foot;
    } chains[] = {
        {{.row = 292, .height = 62, .length = 210, .grains = 4, .seed = 3},
         rgb(0x8FB7C4),
         rgb(0xB9D8CF)},
        {{.row = 330, .height = 60, .length = 260, .grains = 2, .seed = 8},
         rgb(0x6FAE7C),
         rgb(0xA9D08C)},
        {{.row = 380, .height = 66, .length = 330, .grains = 2, .seed = 14},
         rgb(0x5BA552),
         rgb(0x9CCB5E)},
        {{.row = 452, .height = 70, .length = 420, .grains = 2, .seed = 27},
         rgb(0x3F8A3C),
         rgb(0x74B844)},
    };

    for (const auto& chain : chains) {
        const double down = y - chain.ridge.top(x);
        const double grass = 0.1 * (clouds(x / 14, y / 5, 91, 3) - 0.42) * step(0, 140, y - 330);
        Colour slope = mixed(chain.top, chain.foot, step(0, 70, down) * 0.8);
        slope = mixed(slope, grass > 0 ? rgb(0xE6F08A) : rgb(0x1F5A2A), std::abs(grass) * 4);
        colour = mixed(colour, slope, below(chain.ridge, x, y));
    }
    return colour;
}

// --- a night in the woods -----------------------------------------------------------------------

constexpr Point kMoon{610, 110};

Colour stars(const Colour& ground, double x, double y) {
    constexpr double kCell = 9;
    const int column = static_cast<int>(x / kCell);
    const int row = static_cast<int>(y / kCell);
    if (random_at(column, row, 501) < 0.82) {
        return ground;
    }
    const Point centre{(column + 0.2 + 0.6 * random_at(column, row, 502)) * kCell,
                       (row + 0.2 + 0.6 * random_at(column, row, 503)) * kCell};
    const double size = 0.4 + 1.1 * std::pow(random_at(column, row, 504), 4);
    return mixed(ground, rgb(0xF4F6FF), disc(x, y, centre, size) * (1 - step(240, 380, y)));
}

// A row of firs: the height of each tapers from its own top.
double firs(double x, double y, double row, double height, double pitch, std::uint32_t seed) {
    double cover = step(row - 2, row + 2, y - 6 * noise(x / 40, 1, seed));
    const int nearest = static_cast<int>(std::floor(x / pitch));
    for (int tree = nearest - 1; tree <= nearest + 1; ++tree) {
        const double middle = (tree + 0.5 + 0.5 * (random_at(tree, 0, seed) - 0.5)) * pitch;
        const double tall = height * (0.55 + 0.45 * random_at(tree, 1, seed));
        const double down = y - (row - tall);
        const double branches = 0.72 + 0.28 * std::fmod(down, tall / 7) / (tall / 7);
        const double reach = 0.24 * down * branches;
        if (down > 0) {
            cover = std::max(cover, std::clamp(reach - std::abs(x - middle) + 0.5, 0.0, 1.0));
        }
    }
    return cover;
}

Colour night(double x, double y) {
    Colour colour = sky(y / 400, rgb(0x060B26), rgb(0x14275A), rgb(0x3B6A94), 0.5);
    const double milky = clouds(x / 120 + y / 200, y / 120 - x / 300, 61, 5);
    const double band = std::exp(-std::abs(y - 60 - x * 0.22) / 70);
    colour = mixed(colour, rgb(0x8E93CF), 0.42 * band * step(0.35, 0.75, milky));
    colour = stars(colour, x, y);
    colour = mixed(colour, rgb(0xB9CDEB), 0.55 * glow(x, y, kMoon, 55));
    const double craters = 0.16 * step(0.5, 0.7, clouds(x / 18, y / 18, 77, 3));
    colour = mixed(colour, mixed(rgb(0xFBF8E6), rgb(0x8F98AC), craters), disc(x, y, kMoon, 34));
    const Ridge far{.row = 372, .height = 70, .length = 240, .grains = 5, .seed = 82};
    colour = mixed(colour, mixed(rgb(0x1C3760), rgb(0x3F678F), step(0, 90, y - far.top(x))),
                   below(far, x, y));
    colour = mixed(colour, rgb(0x122747), firs(x, y, 408, 62, 17, 7));
    colour = mixed(colour, rgb(0x0B1830), firs(x, y, 440, 105, 29, 9));
    return mixed(colour, rgb(0x050B1A), firs(x, y, 476, 165, 52, 12));
}

}  // namespace

std::vector<Landscape> landscapes() {
    return {
        {"evening.jpg", painted(evening)},
        {"morning.jpg", painted(morning)},
        {"night.jpg", painted(night)},
    };
}

}  // namespace tools
