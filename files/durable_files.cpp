#include "files/durable_files.h"

namespace solvanta {
namespace {

bool is_want_of_permission(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system;
}

}  // namespace

std::error_code DurableFiles::read(const std::string& path, std::size_t limit, std::string& bytes) {
    return calls_.read(path, limit, bytes);
}

std::error_code DurableFiles::replace(const std::string& path, std::string_view bytes) {
    const std::string target = calls_.resolve(path);
    const std::string temporary = target + ".tmp";
    std::error_code error = write_new(temporary, bytes);
    if (!error) error = calls_.rename(temporary, target);
    if (!error) return calls_.sync_directory_of(target);
    calls_.remove(temporary);
    return is_want_of_permission(error) ? write_in_place(target, bytes, error) : error;
}

std::error_code DurableFiles::close_after(const std::error_code& error) {
    const std::error_code close_error = calls_.close();
    return error ? error : close_error;
}

std::error_code DurableFiles::write_new(const std::string& path, std::string_view bytes) {
    if (const std::error_code error = calls_.create(path)) return error;
    std::error_code error = calls_.write(bytes);
    if (!error) error = calls_.flush();
    return close_after(error);
}

/// Flushes before the cut: a device that does the cut first would keep neither content whole.
std::error_code DurableFiles::write_over(const std::string& path, std::string_view bytes) {
    if (const std::error_code error = calls_.open(path)) return error;
    std::error_code error = calls_.write(bytes);
    if (!error) error = calls_.flush();
    if (!error) error = calls_.cut();
    if (!error) error = calls_.flush();
    return close_after(error);
}

/// `refusal` tells why the file could not be replaced, and why nothing was done when the old one
/// can't be kept in memory meanwhile.
std::error_code DurableFiles::write_in_place(const std::string& path, std::string_view bytes,
                                             const std::error_code& refusal) {
    constexpr std::size_t largest_kept = std::size_t{16} << 20;
    std::string old;
    if (calls_.read(path, largest_kept, old)) return refusal;
    const std::error_code error = write_over(path, bytes);
    if (error) write_over(path, old);
    return error;
}

Files& system_files() {
    static DurableFiles files(system_file_calls());
    return files;
}

}  // namespace solvanta
