#include "scores/durable_file.h"

namespace solvanta {
namespace {

constexpr std::size_t largest_kept = std::size_t{1} << 20;

bool is_want_of_permission(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system;
}

std::error_code close_after(FileCalls& calls, const std::error_code& error) {
    const std::error_code close_error = calls.close();
    return error ? error : close_error;
}

std::error_code write_new(FileCalls& calls, const std::string& path, std::string_view bytes) {
    if (const std::error_code error = calls.create(path)) return error;
    std::error_code error = calls.write(bytes);
    if (!error) error = calls.flush();
    return close_after(calls, error);
}

/// Flushes before the cut: a device that does the cut first would keep neither list whole.
std::error_code write_over(FileCalls& calls, const std::string& path, std::string_view bytes) {
    if (const std::error_code error = calls.open(path)) return error;
    std::error_code error = calls.write(bytes);
    if (!error) error = calls.flush();
    if (!error) error = calls.cut();
    if (!error) error = calls.flush();
    return close_after(calls, error);
}

/// `refusal` tells why the file could not be replaced, and why nothing was done when the old one
/// can't be read.
std::error_code write_in_place(FileCalls& calls, const std::string& path, std::string_view bytes,
                               const std::error_code& refusal) {
    std::string old;
    if (calls.read(path, largest_kept, old)) return refusal;
    const std::error_code error = write_over(calls, path, bytes);
    if (error) write_over(calls, path, old);
    return error;
}

}  // namespace

std::error_code replace_file(FileCalls& calls, const std::string& path, std::string_view bytes) {
    const std::string temporary = path + ".tmp";
    std::error_code error = write_new(calls, temporary, bytes);
    if (!error) error = calls.rename(temporary, path);
    if (!error) return calls.sync_directory_of(path);
    calls.remove(temporary);
    return is_want_of_permission(error) ? write_in_place(calls, path, bytes, error) : error;
}

}  // namespace solvanta
