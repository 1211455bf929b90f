// SPDX-License-Identifier: MIT
// What the file holds, as libtiff reads it.

#include "reports/export/byte_file.h"
#include "reports/export/tiff_file.h"
#include "template/testing/temporary_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <tiffio.h>

namespace zorvane {
namespace {

using Dots = std::vector<std::uint8_t>;

struct Closes_Tiff {
    void operator()(TIFF* file) const noexcept { TIFFClose(file); }
};

struct Written_Tiff : testing::Test {
    void open(const std::string& bytes) {
        writeByteFile(folder.path() + "/pages.tif", bytes);
        file.reset(TIFFOpen((folder.path() + "/pages.tif").c_str(), "r"));
        ASSERT_TRUE(file);
    }
    /// The places in the colour table, of the page that is at hand.
    [[nodiscard]] Dots dots() const {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        std::uint16_t bits = 0;
        TIFFGetField(file.get(), TIFFTAG_IMAGEWIDTH, &width);
        TIFFGetField(file.get(), TIFFTAG_IMAGELENGTH, &height);
        TIFFGetField(file.get(), TIFFTAG_BITSPERSAMPLE, &bits);
        Dots found;
        Dots row(static_cast<std::size_t>(TIFFScanlineSize(file.get())));
        for (std::uint32_t y = 0; y < height; ++y) {
            EXPECT_EQ(TIFFReadScanline(file.get(), row.data(), y), 1);
            for (std::uint32_t x = 0; x < width; ++x)
                found.push_back(bits == 8 ? row[x] : row[x / 2] >> (x % 2 == 0 ? 4 : 0) & 0xF);
        }
        return found;
    }

    doubles::Temporary_Folder folder;
    std::unique_ptr<TIFF, Closes_Tiff> file;
};

/// Mostly paper, as pages are, with runs of every length.
Dots randomDots(std::mt19937& random, std::size_t count, unsigned colours) {
    Dots dots;
    while (dots.size() < count) {
        const bool paper = random() % 3 > 0;
        const auto colour = static_cast<std::uint8_t>(paper ? 0 : random() % colours);
        dots.insert(dots.end(), 1 + random() % (paper ? 3000 : 4), colour);
    }
    dots.resize(count);
    return dots;
}

TEST_F(Written_Tiff, EveryDotComesBack) {
    std::mt19937 random(7);
    for (const unsigned colours : {2U, 16U, 17U, 256U}) {
        const std::vector<Packed_Colour> table(colours, 0x123456);
        for (const std::uint32_t width : {1U, 2U, 7U, 1700U}) {
            Tiff_File made(200, table);
            std::vector<Dots> pages;
            for (const std::size_t height : {1U, 3U, 500U})
                pages.push_back(randomDots(random, width * height, colours));
            for (const Dots& page : pages)
                made.addPage(width, page);
            open(made.take());
            for (std::size_t page = 0; page < pages.size(); ++page) {
                ASSERT_EQ(TIFFSetDirectory(file.get(), static_cast<std::uint16_t>(page)), 1);
                EXPECT_EQ(dots(), pages[page]) << colours << " colours, width " << width << ", page " << page;
            }
            EXPECT_EQ(TIFFNumberOfDirectories(file.get()), pages.size());
        }
    }
}

TEST_F(Written_Tiff, NoiseThatFillsTheTableOfSequencesComesBack) {
    std::mt19937 random(8);
    Dots noise(100000);
    for (std::uint8_t& dot : noise)
        dot = static_cast<std::uint8_t>(random() % 256);
    Tiff_File made(200, std::vector<Packed_Colour>(256, 0));
    made.addPage(1000, noise);
    made.addPage(1000, Dots(1000000, 0));
    open(made.take());
    EXPECT_EQ(dots(), noise);
    TIFFReadDirectory(file.get());
    EXPECT_EQ(dots(), Dots(1000000, 0));
}

TEST_F(Written_Tiff, TellsItsResolutionAndColours) {
    Tiff_File made(200, {0xFFFFFF, 0x0000C0});
    made.addPage(2, Dots{0, 1});
    open(made.take());
    float across = 0;
    TIFFGetField(file.get(), TIFFTAG_XRESOLUTION, &across);
    EXPECT_EQ(across, 200);
    std::uint16_t* red = nullptr;
    std::uint16_t* green = nullptr;
    std::uint16_t* blue = nullptr;
    ASSERT_EQ(TIFFGetField(file.get(), TIFFTAG_COLORMAP, &red, &green, &blue), 1);
    EXPECT_EQ(red[0], 0xFFFF);
    EXPECT_EQ(red[1], 0xC0C0);
    EXPECT_EQ(green[1], 0);
    EXPECT_EQ(blue[1], 0);
}

} // namespace
} // namespace zorvane
