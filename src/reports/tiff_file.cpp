#include "reports/tiff_file.h"

#include "values/run_time_failure.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <tiffio.h>
#include <vector>

namespace zorvane {

struct Tiff_File::Memory {
    std::string bytes;
    std::size_t place = 0;
    TIFF* tiff = nullptr;

    Memory() = default;
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    Memory(Memory&&) = delete;
    Memory& operator=(Memory&&) = delete;
    ~Memory() {
        if (tiff != nullptr) TIFFClose(tiff);
    }

    static Memory& of(thandle_t handle) { return *static_cast<Memory*>(handle); }

    static tmsize_t read(thandle_t handle, void* data, tmsize_t size) {
        Memory& memory = of(handle);
        if (memory.place >= memory.bytes.size()) return 0;
        const std::size_t count =
            std::min(static_cast<std::size_t>(size), memory.bytes.size() - memory.place);
        std::memcpy(data, memory.bytes.data() + memory.place, count);
        memory.place += count;
        return static_cast<tmsize_t>(count);
    }
    static tmsize_t write(thandle_t handle, void* data, tmsize_t size) {
        Memory& memory = of(handle);
        const auto count = static_cast<std::size_t>(size);
        memory.bytes.resize(std::max(memory.bytes.size(), memory.place + count));
        std::memcpy(memory.bytes.data() + memory.place, data, count);
        memory.place += count;
        return size;
    }
    static toff_t seek(thandle_t handle, toff_t offset, int whence) {
        Memory& memory = of(handle);
        const toff_t start = whence == SEEK_CUR ? memory.place : whence == SEEK_END ? memory.bytes.size() : 0;
        memory.place = static_cast<std::size_t>(start + offset);
        return memory.place;
    }
    static int close(thandle_t) { return 0; }
    static toff_t size(thandle_t handle) { return of(handle).bytes.size(); }
};

namespace {

void require(bool done) {
    if (!done) throw Run_Time_Failure(Failure::PathFileAccess);
}

} // namespace

Tiff_File::Tiff_File(int dotsPerInch) : memory_(std::make_unique<Memory>()), dotsPerInch_(dotsPerInch) {
    memory_->tiff = TIFFClientOpen("report", "w", memory_.get(), Memory::read, Memory::write, Memory::seek,
                                   Memory::close, Memory::size, nullptr, nullptr);
    require(memory_->tiff != nullptr);
}

Tiff_File::~Tiff_File() = default;

void Tiff_File::addPage(std::uint32_t width, std::uint32_t height,
                        const std::function<const std::uint8_t*(std::uint32_t row)>& row) {
    constexpr int samples = 3;
    TIFF* const tiff = memory_->tiff;
    require(tiff != nullptr);
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, height);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, static_cast<double>(dotsPerInch_));
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, static_cast<double>(dotsPerInch_));
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tiff, TIFFTAG_SOFTWARE, "Zorvane");
    std::vector<std::uint8_t> line(std::size_t{width} * samples); // the writer changes what it is given
    for (std::uint32_t index = 0; index < height; ++index) {
        std::copy_n(row(index), line.size(), line.begin());
        require(TIFFWriteScanline(tiff, line.data(), index) == 1);
    }
    require(TIFFWriteDirectory(tiff) == 1);
}

std::string Tiff_File::take() {
    if (memory_->tiff != nullptr) TIFFClose(memory_->tiff);
    memory_->tiff = nullptr;
    return std::move(memory_->bytes);
}

} // namespace zorvane
