#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tools {
namespace {

constexpr int kSamples = 8;  // each way, for one pixel

double squared_distance(Point a, Point b) {
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

// The place on the line from `a` to `b` that is nearest to `point`.
Point nearest_on(Point a, Point b, Point point) {
    const double length = squared_distance(a, b);
    const double along = (point.x - a.x) * (b.x - a.x) + (point.y - a.y) * (b.y - a.y);
    const double part = length > 0 ? std::clamp(along / length, 0.0, 1.0) : 0;
    return {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)};
}

// The colour at one point; absent outside of the ground.
std::optional<Colour> colour_at(const Drawing& drawing, Point point) {
    std::optional<Colour> colour;
    for (const Layer& layer : drawing) {
        const bool is_ground = &layer == &drawing.front();
        if (!layer.shape(point)) {
            if (is_ground) {
                return std::nullopt;
            }
            continue;
        }
        colour = colour ? mixed(*colour, layer.colour, layer.opacity) : layer.colour;
    }
    return colour;
}

std::optional<Colour> pixel_of(const Drawing& drawing, double scale, int x, int y) {
    Colour sum;
    int covered = 0;
    for (int sample = 0; sample < kSamples * kSamples; ++sample) {
        const double right = (sample % kSamples + 0.5) / kSamples;
        const double down = (sample / kSamples + 0.5) / kSamples;
        const std::optional<Colour> colour =
            colour_at(drawing, {(x + right) * scale, (y + down) * scale});
        if (colour) {
            sum = {sum.red + colour->red, sum.green + colour->green, sum.blue + colour->blue};
            ++covered;
        }
    }
    if (covered * 2 < kSamples * kSamples) {
        return std::nullopt;
    }
    return Colour{sum.red / covered, sum.green / covered, sum.blue / covered};
}

}  // namespace

Colour rgb(std::uint32_t value) {
    const auto part = [value](unsigned shift) { return ((value >> shift) & 0xFFU) / 255.0; };
    return {part(16), part(8), part(0)};
}

Colour mixed(const Colour& from, const Colour& to, double part) {
    return {std::lerp(from.red, to.red, part), std::lerp(from.green, to.green, part),
            std::lerp(from.blue, to.blue, part)};
}

std::array<int, 3> bytes_of(const Colour& colour) {
    const auto byte = [](double part) {
        return static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    };
    return {byte(colour.red), byte(colour.green), byte(colour.blue)};
}

Shape circle(Point centre, double radius) {
    return [=](Point point) { return squared_distance(point, centre) <= radius * radius; };
}

Shape polygon(std::vector<Point> corners) {
    return [corners = std::move(corners)](Point point) {
        bool is_inside = false;
        Point before = corners.back();
        for (const Point corner : corners) {
            const bool crosses = (corner.y > point.y) != (before.y > point.y);
            if (crosses && point.x < corner.x + (point.y - corner.y) * (before.x - corner.x) /
                                                    (before.y - corner.y)) {
                is_inside = !is_inside;
            }
            before = corner;
        }
        return is_inside;
    };
}

Shape box(Point corner, double width, double height, double rounding) {
    return [=](Point point) {
        const Point core{std::clamp(point.x, corner.x + rounding, corner.x + width - rounding),
                         std::clamp(point.y, corner.y + rounding, corner.y + height - rounding)};
        return squared_distance(point, core) <= rounding * rounding;
    };
}

Shape line(Point from, Point to, double thickness) {
    return [=](Point point) {
        return squared_distance(point, nearest_on(from, to, point)) <= thickness * thickness / 4;
    };
}

Shape arc(Point centre, double radius, double thickness, double from, double to) {
    return [=](Point point) {
        const double distance = std::sqrt(squared_distance(point, centre));
        const double degrees =
            std::atan2(point.y - centre.y, point.x - centre.x) * 180 / std::numbers::pi;
        const double turned = std::fmod(degrees - from + 720, 360);
        return std::abs(distance - radius) <= thickness / 2 && turned <= to - from;
    };
}

Shape without(Shape shape, Shape hole) {
    return [shape = std::move(shape), hole = std::move(hole)](Point point) {
        return shape(point) && !hole(point);
    };
}

Pixels rendered(const Drawing& drawing, int side) {
    Pixels pixels{side, side, {}};
    const double scale = kDrawingSide / side;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            pixels.colours.push_back(pixel_of(drawing, scale, x, y));
        }
    }
    return pixels;
}

}  // namespace tools
