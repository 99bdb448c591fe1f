// Draws the format picker images (16 x 16, 16 colours) and writes them as BMP files with
// a Qt resource file listing them:
//   bravcpl5_picker_images <output folder>
// The build runs it and compiles the result into the library, so the images are always
// made from the tables in layout/FormatPickers.h and no binary is kept in the sources.

#include "layout/FormatPickers.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace bravcpl5::pickers;

constexpr int size = 16;

// The standard 16-colour palette (0xRRGGBB); every swatch colour is one of these.
constexpr std::array<std::uint32_t, 16> palette = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

constexpr std::uint8_t black = 0;
constexpr std::uint8_t gray50 = 8;
constexpr std::uint8_t white = 15;

std::uint8_t paletteIndex(std::uint32_t rgb)
{
    for (std::size_t i = 0; i < palette.size(); ++i) {
        if (palette[i] == rgb)
            return std::uint8_t(i);
    }
    return black;
}

struct Image {
    std::array<std::uint8_t, size * size> pixels{};

    explicit Image(std::uint8_t background) { pixels.fill(background); }
    void set(int x, int y, std::uint8_t c)
    {
        if (x >= 0 && x < size && y >= 0 && y < size)
            pixels[std::size_t(y * size + x)] = c;
    }
    void fill(int x0, int y0, int x1, int y1, std::uint8_t c) // inclusive corners
    {
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x)
                set(x, y, c);
    }
    void frame(int x0, int y0, int x1, int y1, std::uint8_t c)
    {
        fill(x0, y0, x1, y0, c);
        fill(x0, y1, x1, y1, c);
        fill(x0, y0, x0, y1, c);
        fill(x1, y0, x1, y1, c);
    }
};

// Text lines, alternating long and short, placed as the alignment places text.
Image alignmentImage(std::int16_t code)
{
    Image image(white);
    for (int row = 0; row < 6; ++row) {
        const int y = 3 + row * 2;
        const int length = row % 2 == 0 ? 12 : 8;
        int x0 = 2;
        if (code == alignRight)
            x0 = 14 - length;
        else if (code == alignCenter)
            x0 = 8 - length / 2;
        image.fill(x0, y, x0 + length - 1, y, black);
    }
    return image;
}

// A dotted cell outline with the preset's sides drawn over it: thin 1 pixel, thick 2,
// double two lines with a gap.
Image borderImage(const BorderPreset &preset)
{
    Image image(white);
    constexpr int lo = 2;
    constexpr int hi = 14; // an odd number of pixels, so the dots meet at every corner
    for (int i = lo; i <= hi; i += 2) {
        image.set(i, lo, gray50);
        image.set(i, hi, gray50);
        image.set(lo, i, gray50);
        image.set(hi, i, gray50);
    }
    auto side = [&](std::int16_t style, int inward, auto line) {
        if (style == lineNone)
            return;
        line(0);
        if (style == lineThick)
            line(inward);
        else if (style == lineDouble)
            line(2 * inward);
    };
    side(preset.left, 1, [&](int d) { image.fill(lo + d, lo, lo + d, hi, black); });
    side(preset.top, 1, [&](int d) { image.fill(lo, lo + d, hi, lo + d, black); });
    side(preset.right, -1, [&](int d) { image.fill(hi + d, lo, hi + d, hi, black); });
    side(preset.bottom, -1, [&](int d) { image.fill(lo, hi + d, hi, hi + d, black); });
    return image;
}

// Border colour: the colour in a black frame with a white ring, so that white and light
// colours stand out; text and back colour: the colour alone, filling the image.
Image swatchImage(std::uint32_t rgb, bool framed)
{
    const std::uint8_t colour = paletteIndex(rgb);
    if (!framed)
        return Image(colour);
    Image image(white);
    image.frame(0, 0, size - 1, size - 1, gray50);
    image.frame(2, 2, size - 3, size - 3, black);
    image.fill(3, 3, size - 4, size - 4, colour);
    return image;
}

void put16(std::vector<std::uint8_t> &out, std::uint32_t v)
{
    out.push_back(std::uint8_t(v));
    out.push_back(std::uint8_t(v >> 8));
}

void put32(std::vector<std::uint8_t> &out, std::uint32_t v)
{
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

// A 4-bit BMP: file header, info header, palette, then rows bottom-up, two pixels a byte.
bool writeBmp(const std::filesystem::path &path, const Image &image)
{
    constexpr std::uint32_t headerBytes = 14 + 40 + 16 * 4;
    constexpr std::uint32_t rowBytes = size / 2; // 8, already a multiple of 4
    constexpr std::uint32_t pixelBytes = rowBytes * size;
    std::vector<std::uint8_t> out;
    out.push_back('B');
    out.push_back('M');
    put32(out, headerBytes + pixelBytes);
    put32(out, 0);
    put32(out, headerBytes);
    put32(out, 40);
    put32(out, size);
    put32(out, size);
    put16(out, 1); // planes
    put16(out, 4); // bits per pixel
    put32(out, 0); // no compression
    put32(out, pixelBytes);
    put32(out, 3780); // 96 dpi in pixels per metre
    put32(out, 3780);
    put32(out, 16);
    put32(out, 0);
    for (std::uint32_t rgb : palette) {
        out.push_back(std::uint8_t(rgb));
        out.push_back(std::uint8_t(rgb >> 8));
        out.push_back(std::uint8_t(rgb >> 16));
        out.push_back(0);
    }
    for (int y = size - 1; y >= 0; --y) {
        for (int x = 0; x < size; x += 2) {
            const std::size_t i = std::size_t(y * size + x);
            out.push_back(std::uint8_t(image.pixels[i] << 4 | image.pixels[i + 1]));
        }
    }
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(out.data()), std::streamsize(out.size()));
    return bool(file);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <output folder>\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);

    std::vector<std::pair<std::string, Image>> images;
    for (const AlignmentPicker &picker : alignmentPickers)
        images.emplace_back(picker.imageName, alignmentImage(picker.code));
    for (const BorderPreset &preset : borderPresets) {
        if (preset.imageName)
            images.emplace_back(preset.imageName, borderImage(preset));
    }
    for (const SwatchSet &set : swatchSets) {
        for (const SwatchColor &colour : swatchColors) {
            if (!set.withAutomatic && std::string(colour.suffix) == automaticSuffix)
                continue;
            images.emplace_back(std::string(set.prefix) + colour.suffix,
                                swatchImage(colour.rgb, set.framed));
        }
    }

    std::ofstream qrc(folder / "picker_images.qrc", std::ios::trunc);
    qrc << "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/pickers\">\n";
    for (const auto &[name, image] : images) {
        if (!writeBmp(folder / (name + ".bmp"), image)) {
            std::fprintf(stderr, "cannot write %s.bmp\n", name.c_str());
            return 1;
        }
        qrc << "  <file>" << name << ".bmp</file>\n";
    }
    qrc << "</qresource>\n</RCC>\n";
    return qrc ? 0 : 1;
}
