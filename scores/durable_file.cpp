#include "scores/durable_file.h"

namespace solvanta {
namespace {

std::error_code write_whole(FileCalls& calls, const std::string& path, std::string_view bytes) {
    if (const std::error_code error = calls.create(path)) return error;
    std::error_code error = calls.write(bytes);
    if (!error) error = calls.flush();
    const std::error_code close_error = calls.close();
    return error ? error : close_error;
}

}  // namespace

std::error_code replace_file(FileCalls& calls, const std::string& path, std::string_view bytes) {
    const std::string temporary = path + ".tmp";
    std::error_code error = write_whole(calls, temporary, bytes);
    if (!error) error = calls.rename(temporary, path);
    if (error) {
        calls.remove(temporary);
        return error;
    }
    return calls.sync_directory_of(path);
}

}  // namespace solvanta
