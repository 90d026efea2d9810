#include "front_ends/win32/one_game.h"

#include <cstring>
#include <utility>

#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

constexpr ULONGLONG patience_ms = 2000;
constexpr DWORD pause_ms = 20;

UINT later_start() {
    static const UINT number = RegisterWindowMessageW(L"Solvanta later start");
    return number;
}

/// A name that each directory has for itself, whatever path leads there; empty where the system
/// can't tell.
std::wstring name_of(const std::string& directory) {
    const std::unique_ptr<void, HandleDeleter> handle(
        CreateFileW(system_path(directory + '\\').c_str(), 0,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION about{};
    if (GetFileInformationByHandle(handle.get(), &about) == FALSE) return {};
    FILE_ID_INFO longer{};  // where the file system has numbers that don't fit in the other
    GetFileInformationByHandleEx(handle.get(), FileIdInfo, &longer, sizeof longer);
    ULONGLONG parts[2]{};
    std::memcpy(parts, &longer.FileId, sizeof parts);
    std::wstring name = L"Solvanta";
    for (const ULONGLONG number :
         {ULONGLONG{about.dwVolumeSerialNumber}, ULONGLONG{about.nFileIndexHigh},
          ULONGLONG{about.nFileIndexLow}, parts[0], parts[1]})
        name += L'-' + std::to_wstring(number);
    return name;
}

/// Hears of later games, for one directory.
class Ear final : public Window {
  public:
    Ear(const std::wstring& name, std::function<bool()> come_forward)
        : come_forward_(std::move(come_forward)) {
        create(plain_class(), 0, 0, HWND_MESSAGE);
        SetWindowTextW(handle(), name.c_str());
    }

    void sync() override {}

  protected:
    std::optional<LRESULT> answer(const Message& message) override {
        if (message.id != later_start()) return std::nullopt;
        return come_forward_() ? TRUE : FALSE;
    }

  private:
    std::function<bool()> come_forward_;
};

/// Gives the game that hears by this name the right to come forward, and asks it to; answers
/// whether it does.
bool ask_to_come_forward(const std::wstring& name) {
    HWND ear = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, name.c_str());
    if (!ear) return false;
    DWORD process = 0;
    GetWindowThreadProcessId(ear, &process);
    AllowSetForegroundWindow(process);
    DWORD_PTR comes = FALSE;
    return SendMessageTimeoutW(ear, later_start(), 0, 0, SMTO_NORMAL, UINT{patience_ms}, &comes) !=
               0 &&
           comes != FALSE;
}

/// Whether the lock comes to this process within that time; a killed game leaves it abandoned.
bool takes(HANDLE lock, DWORD within_ms) {
    const DWORD result = WaitForSingleObject(lock, within_ms);
    return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

}  // namespace

OneGame::OneGame(const std::string& directory) : name_(name_of(directory)) {
    if (name_.empty()) return;
    lock_.reset(CreateMutexW(nullptr, FALSE, (L"Local\\" + name_).c_str()));
    const ULONGLONG end = GetTickCount64() + patience_ms;
    DWORD wait = 0;
    while (lock_ && may_start_ && !takes(lock_.get(), std::exchange(wait, pause_ms)))
        may_start_ = !ask_to_come_forward(name_) && GetTickCount64() < end;
}

void OneGame::on_later_start(std::function<bool()> come_forward) {
    if (lock_) ear_ = std::make_unique<Ear>(name_, std::move(come_forward));
}

}  // namespace solvanta::win32
