#include "icons.h"

#include <cmath>
#include <numbers>

namespace tools {
namespace {

const Colour kWhite = rgb(0xFFFFFF);
const Colour kDark = rgb(0x37475A);    // ground of what shows a light
const Colour kGrey = rgb(0x8A97A6);    // ground of what is off
const Colour kTeal = rgb(0x1E9C93);    // ground of callers
const Colour kBlue = rgb(0x3C82CC);    // ground of the browser
const Colour kPurple = rgb(0x7F5FC0);  // ground of sounds
const Colour kIndigo = rgb(0x2B3168);
const Colour kSky = rgb(0x57AEEB);
const Colour kYellow = rgb(0xFFD75A);
const Colour kGreen = rgb(0x5BE37D);
const Colour kRed = rgb(0xFF6B5E);
const Colour kUnlit = rgb(0x55667A);

Drawing tile(const Colour& colour) {
    // A band of light along the upper edge gives the flat tile a little body.
    return {{box({0.5, 0.5}, 23, 23, 5), colour},
            {without(box({0.5, 0.5}, 23, 23, 5), box({0.5, 1.5}, 23, 23, 5)), kWhite, 0.25}};
}

Drawing operator+(Drawing drawing, const std::vector<Layer>& layers) {
    drawing.insert(drawing.end(), layers.begin(), layers.end());
    return drawing;
}

// --- callers ------------------------------------------------------------------------------------

std::vector<Layer> handset(const Colour& colour) {
    return {{arc({17, 7}, 9.2, 3.2, 96, 174), colour},
            {line({7.4, 6.4}, {9.2, 9.2}, 4.6), colour},
            {line({17.6, 16.6}, {14.8, 14.8}, 4.6), colour}};
}

Drawing caller() {
    return tile(kTeal) + handset(kWhite) +
           std::vector<Layer>{{arc({13, 11}, 3.2, 1.6, 275, 355), kWhite, 0.8},
                              {arc({13, 11}, 6.4, 1.6, 275, 355), kWhite, 0.8}};
}

Drawing no_caller() {
    return tile(kGrey) + handset(kWhite) +
           std::vector<Layer>{{line({5.5, 19.5}, {19.5, 5.5}, 4), kGrey},
                              {line({5, 20}, {19.5, 5.5}, 1.8), kWhite}};
}

// --- sleep --------------------------------------------------------------------------------------

Drawing asleep() {
    return tile(kIndigo) +
           std::vector<Layer>{
               {without(circle({11, 12.5}, 7.2), circle({14.4, 10.2}, 6.2)), kYellow},
               {circle({16.6, 8}, 1.1), kWhite},
               {circle({19, 12.6}, 0.8), kWhite},
               {circle({15.4, 13}, 0.7), kWhite}};
}

Drawing awake() {
    Drawing drawing = tile(kSky);
    for (int ray = 0; ray < 8; ++ray) {
        const double angle = ray * std::numbers::pi / 4;
        const auto at = [angle](double radius) {
            return Point{12 + radius * std::cos(angle), 12 + radius * std::sin(angle)};
        };
        drawing.push_back({line(at(6.9), at(9), 1.9), kYellow});
    }
    drawing.push_back({circle({12, 12}, 5), kYellow});
    return drawing;
}

// --- lights -------------------------------------------------------------------------------------

Drawing bulb(const Colour& ground, const Colour& glass, bool is_lit) {
    Drawing drawing = tile(ground);
    if (is_lit) {
        drawing.push_back({circle({12, 10}, 9.2), kWhite, 0.2});
        drawing.push_back({circle({12, 10}, 7.6), kWhite, 0.25});
    }
    return drawing +
           std::vector<Layer>{{circle({12, 10}, 5.6), glass},
                              {polygon({{8.4, 13}, {15.6, 13}, {14.4, 16.4}, {9.6, 16.4}}), glass},
                              {box({9.5, 17.1}, 5, 1.6, 0.8), kDark},
                              {box({10.2, 19.2}, 3.6, 1.6, 0.8), kDark}};
}

std::vector<Layer> lamp(Point centre, const Colour& colour, bool is_lit) {
    if (!is_lit) {
        return {{circle(centre, 2.7), kUnlit}};
    }
    return {{circle(centre, 5), colour, 0.25},
            {circle(centre, 3.8), colour, 0.35},
            {circle(centre, 2.7), colour},
            {circle({centre.x - 0.8, centre.y - 0.8}, 0.9), kWhite, 0.75}};
}

Drawing top_led(bool is_lit) {
    // The unit, with its light above the screen.
    return tile(kDark) +
           std::vector<Layer>{{box({3.5, 10.5}, 17, 10, 2), rgb(0xD5DCE4)},
                              {box({5.5, 12.3}, 13, 6.4, 0.8), rgb(0x6C8096)}} +
           lamp({12, 6.6}, kGreen, is_lit);
}

Drawing mail_led(bool is_lit) {
    return tile(kDark) +
           std::vector<Layer>{{box({3.5, 9}, 15, 11, 1.4), rgb(0xF3F5F8)},
                              {line({4.4, 10}, {11, 15.2}, 1.4), rgb(0x8D9CAD)},
                              {line({17.6, 10}, {11, 15.2}, 1.4), rgb(0x8D9CAD)},
                              {circle({18, 7}, 4.2), kDark}} +
           lamp({18, 7}, kRed, is_lit);
}

// --- browser ------------------------------------------------------------------------------------

Drawing with_buttons() {
    const Colour text = rgb(0xAFC4DB);
    return tile(kBlue) +
           std::vector<Layer>{{box({3, 4.5}, 18, 15, 1.8), kWhite},
                              {box({5.5, 6.7}, 9, 1.4, 0.7), text},
                              {box({5.5, 9.3}, 13, 1.4, 0.7), text},
                              {box({4.2, 12.2}, 15.6, 6.1, 1), rgb(0x23527F)},
                              {polygon({{11, 12.9}, {11, 17.6}, {6.4, 15.25}}), kWhite},
                              {polygon({{13, 12.9}, {13, 17.6}, {17.6, 15.25}}), kWhite}};
}

Drawing full_screen() {
    Drawing drawing = tile(kBlue);
    // Four arrows, each from the middle into its corner.
    for (const Point way : {Point{-1, -1}, Point{1, -1}, Point{-1, 1}, Point{1, 1}}) {
        const auto at = [way](double x, double y) { return Point{12 + way.x * x, 12 + way.y * y}; };
        drawing.push_back({line(at(2.6, 2.6), at(6, 6), 2.2), kWhite});
        drawing.push_back({polygon({at(7.6, 7.6), at(7.6, 2.6), at(2.6, 7.6)}), kWhite});
    }
    return drawing;
}

// --- sounds -------------------------------------------------------------------------------------

Drawing sound() {
    return tile(kPurple) +
           std::vector<Layer>{{box({4, 9}, 5, 6, 0.8), kWhite},
                              {polygon({{6.5, 10}, {12, 5.4}, {12, 18.6}, {6.5, 14}}), kWhite},
                              {arc({11, 12}, 4.2, 1.8, -42, 42), kWhite},
                              {arc({11, 12}, 7.8, 1.8, -42, 42), kWhite}};
}

// Four bars, of which so many are lit.
Drawing level(int lit) {
    constexpr int kBars = 4;
    constexpr double kPitch = 4.4;
    Drawing drawing = tile(kDark);
    for (int bar = 0; bar < kBars; ++bar) {
        const double height = 4 + bar * 3.4;
        const Colour colour = bar < lit ? mixed(kGreen, kYellow, bar / 4.0) : kUnlit;
        drawing.push_back({box({3.7 + bar * kPitch, 19 - height}, 3.3, height, 0.9), colour});
    }
    return drawing;
}

}  // namespace

std::vector<Icon> icons() {
    return {
        {"CID.gif", {caller()}},
        {"noCID.gif", {no_caller()}},
        {"Velora-off.gif", {asleep()}},
        {"Velora-on.gif", {awake()}},
        {"BacklightOff.gif", {bulb(kGrey, rgb(0xC9D1DA), false)}},
        {"BacklightOn.gif", {bulb(rgb(0xF08A35), rgb(0xFFE487), true)}},
        {"TopLEDOff.gif", {top_led(false)}},
        {"TopLEDOn.gif", {top_led(true)}},
        {"TopLEDBlink.gif", {top_led(true), top_led(false)}},
        {"MailLEDOff.gif", {mail_led(false)}},
        {"MailLEDOn.gif", {mail_led(true)}},
        {"MailLEDBlink.gif", {mail_led(true), mail_led(false)}},
        {"BrowserNav.gif", {with_buttons()}},
        {"BrowserFull.gif", {full_screen()}},
        {"sound.gif", {sound()}},
        {"level_1.gif", {level(0)}},
        {"level_3.gif", {level(1)}},
        {"level_5.gif", {level(2)}},
        {"level_7.gif", {level(3)}},
        {"level_10.gif", {level(4)}},
    };
}

}  // namespace tools
