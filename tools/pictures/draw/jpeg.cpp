#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <jpeglib.h>

#include "codecs.h"

namespace solvanta::pictures {

namespace {

constexpr int quality = 95;

// The library reports errors by a call that must not return. The jump leaves only frames of
// the library and of functions whose variables need no destruction.
struct ErrorExit {
    jpeg_error_mgr manager;
    std::jmp_buf back;
};

[[noreturn]] void jump_back(j_common_ptr info) {
    std::longjmp(reinterpret_cast<ErrorExit*>(info->err)->back, 1);
}

void stay_silent(j_common_ptr /*info*/) {}

void catch_errors(ErrorExit& exit) {
    jpeg_std_error(&exit.manager);
    exit.manager.error_exit = jump_back;
    exit.manager.output_message = stay_silent;
}

struct RawRows {
    std::uint8_t* data;
    unsigned width;
    unsigned height;
};

// Compresses rows of three bytes a pixel; on success the caller frees *file.
bool compress(const RawRows& rows, unsigned char** file, unsigned long* size) {
    jpeg_compress_struct info;
    ErrorExit exit;
    catch_errors(exit);
    info.err = &exit.manager;
    if (setjmp(exit.back) != 0) {
        jpeg_destroy_compress(&info);
        return false;
    }
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, file, size);
    info.image_width = rows.width;
    info.image_height = rows.height;
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.comp_info[0].h_samp_factor = 1;
    info.comp_info[0].v_samp_factor = 1;
    info.optimize_coding = TRUE;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = rows.data + std::size_t{info.next_scanline} * rows.width * 3;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return true;
}

// Reads the size (data null) or, with data for that size, the rows.
bool decompress(const Bytes& file, RawRows* rows) {
    jpeg_decompress_struct info;
    ErrorExit exit;
    catch_errors(exit);
    info.err = &exit.manager;
    if (setjmp(exit.back) != 0) {
        jpeg_destroy_decompress(&info);
        return false;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    if (rows->data == nullptr) {
        rows->width = info.image_width;
        rows->height = info.image_height;
    } else {
        jpeg_start_decompress(&info);
        while (info.output_scanline < info.output_height) {
            JSAMPROW row = rows->data + std::size_t{info.output_scanline} * rows->width * 3;
            jpeg_read_scanlines(&info, &row, 1);
        }
        jpeg_finish_decompress(&info);
    }
    jpeg_destroy_decompress(&info);
    return true;
}

}  // namespace

Bytes encode_jpeg(const Image& image) {
    Bytes rows;
    for (const Pixel& pixel : image.pixels) {
        rows.insert(rows.end(), {pixel.red, pixel.green, pixel.blue});
    }
    unsigned char* data = nullptr;
    unsigned long size = 0;
    const bool done = compress(
        {rows.data(), static_cast<unsigned>(image.width), static_cast<unsigned>(image.height)},
        &data, &size);
    Bytes file;
    if (done) {
        file.assign(data, data + size);
    }
    std::free(data);
    if (!done) {
        throw std::runtime_error("JPEG picture cannot be written");
    }
    return file;
}

Image decode_jpeg(const Bytes& file) {
    RawRows rows{nullptr, 0, 0};
    if (file.empty() || !decompress(file, &rows)) {
        throw std::runtime_error("not a JPEG file");
    }
    Image image(static_cast<int>(rows.width), static_cast<int>(rows.height));
    Bytes data(image.pixels.size() * 3);
    rows.data = data.data();
    if (!decompress(file, &rows)) {
        throw std::runtime_error("damaged JPEG file");
    }
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        image.pixels[i] = {data[3 * i], data[3 * i + 1], data[3 * i + 2], 255};
    }
    return image;
}

}  // namespace solvanta::pictures
