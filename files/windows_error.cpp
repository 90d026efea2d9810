#include "files/windows_error.h"

#include <string>

#include <windows.h>

#include "text/windows_text.h"

namespace solvanta {
namespace {

struct Meaning {
    int code;
    std::errc condition;
};

constexpr Meaning meanings[] = {
    {ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    {ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    {ERROR_ACCESS_DENIED, std::errc::permission_denied},
    {ERROR_NOT_ENOUGH_MEMORY, std::errc::not_enough_memory},
    {ERROR_OUTOFMEMORY, std::errc::not_enough_memory},
    {ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    {ERROR_CRC, std::errc::io_error},
    {ERROR_WRITE_FAULT, std::errc::io_error},
    {ERROR_READ_FAULT, std::errc::io_error},
    {ERROR_IO_DEVICE, std::errc::io_error},
    {ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
    {ERROR_LOCK_VIOLATION, std::errc::device_or_resource_busy},
    {ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_INVALID_PARAMETER, std::errc::invalid_argument},
    {ERROR_INVALID_NAME, std::errc::invalid_argument},
    {ERROR_FILE_TOO_LARGE, std::errc::file_too_large},
    {ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    {ERROR_ALREADY_EXISTS, std::errc::file_exists},
    {ERROR_FILE_EXISTS, std::errc::file_exists},
};

std::string system_message(int code, DWORD language) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(code), language, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::string message = length == 0 ? "" : to_utf8({text, length});
    LocalFree(text);
    message.resize(message.find_last_not_of("\r\n ") + 1);
    return message;
}

class WindowsCategory final : public std::error_category {
  public:
    const char* name() const noexcept override { return "Windows"; }

    std::string message(int code) const override {
        std::string text = system_message(code, MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN));
        if (text.empty()) text = system_message(code, 0);
        return text.empty() ? "Fehler " + std::to_string(code) : text;
    }

    std::error_condition default_error_condition(int code) const noexcept override {
        for (const Meaning& meaning : meanings) {
            if (meaning.code == code) return std::make_error_condition(meaning.condition);
        }
        return {code, *this};
    }
};

}  // namespace

std::error_code windows_error(unsigned long code) {
    static const WindowsCategory category;
    return {static_cast<int>(code), category};
}

}  // namespace solvanta
