#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

// Flat shapes of one colour each, laid over one another.
namespace tools {

struct Colour {
    double red = 0;  // each 0 to 1
    double green = 0;
    double blue = 0;
};

// From 0xRRGGBB.
[[nodiscard]] Colour rgb(std::uint32_t value);
[[nodiscard]] Colour mixed(const Colour& from, const Colour& to, double part);

// As the formats count: 0 to 255, rounded.
[[nodiscard]] std::array<int, 3> bytes_of(const Colour& colour);

struct Point {
    double x = 0;
    double y = 0;
};

// True for the points that belong to it.
using Shape = std::function<bool(Point)>;

[[nodiscard]] Shape circle(Point centre, double radius);
[[nodiscard]] Shape polygon(std::vector<Point> corners);
[[nodiscard]] Shape box(Point corner, double width, double height, double rounding = 0);
[[nodiscard]] Shape line(Point from, Point to, double thickness);  // with round ends

// A part of a ring around `centre`; angles in degrees, 0 to the right and 90 down.
[[nodiscard]] Shape arc(Point centre, double radius, double thickness, double from, double to);

[[nodiscard]] Shape without(Shape shape, Shape hole);

// One shape over those before it; `opacity` 0 to 1.
struct Layer {
    Shape shape;
    Colour colour;
    double opacity = 1;
};

// Layers in a square from (0, 0) to (24, 24). The first one is the ground; what it does not cover
// is transparent.
using Drawing = std::vector<Layer>;

inline constexpr double kDrawingSide = 24;

// One colour for each pixel, row by row; absent where it is transparent.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::optional<Colour>> colours;
};

// Pixels whose edges are smooth within the drawing; its own edge is hard, since the format of the
// icons has no half transparent pixels.
[[nodiscard]] Pixels rendered(const Drawing& drawing, int side);

}  // namespace tools
