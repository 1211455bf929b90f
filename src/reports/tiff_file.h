#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zorvane {

/// A TIFF file of several pages in memory: red, green and blue in 8 bits each, packed without loss (LZW).
class Tiff_File {
  public:
    explicit Tiff_File(int dotsPerInch);
    ~Tiff_File();
    Tiff_File(const Tiff_File&) = delete;
    Tiff_File& operator=(const Tiff_File&) = delete;
    Tiff_File(Tiff_File&&) = delete;
    Tiff_File& operator=(Tiff_File&&) = delete;

    /// `row` gives the three bytes of each dot of a row. What can't be written is failure 75.
    void addPage(std::uint32_t width, std::uint32_t height,
                 const std::function<const std::uint8_t*(std::uint32_t row)>& row);
    /// Ends the file. Nothing can be added to it then.
    [[nodiscard]] std::string take();

  private:
    struct Memory;

    std::unique_ptr<Memory> memory_;
    int dotsPerInch_;
};

} // namespace zorvane
