#include "front_ends/qt/keys.h"

#include <map>

namespace solvanta::qt {
namespace {

char character_of(const QKeyEvent& event) {
    constexpr quint32 first_digit = 10;  // under X and Wayland alike
    const quint32 place = event.nativeScanCode() - first_digit;
    if (place < 10) return "1234567890"[place];
    const int key = event.key();
    const bool is_of_use =
        (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z);
    return is_of_use ? static_cast<char>(key) : '\0';
}

}  // namespace

KeyPress to_key_press(const QKeyEvent& event) {
    static const std::map<int, TableKey> keys{
        {Qt::Key_Left, TableKey::Left},     {Qt::Key_Right, TableKey::Right},
        {Qt::Key_Up, TableKey::Up},         {Qt::Key_Down, TableKey::Down},
        {Qt::Key_Home, TableKey::Home},     {Qt::Key_End, TableKey::End},
        {Qt::Key_PageUp, TableKey::PageUp}, {Qt::Key_PageDown, TableKey::PageDown},
        {Qt::Key_Return, TableKey::Click},  {Qt::Key_Enter, TableKey::Click},
        {Qt::Key_Space, TableKey::Click},
    };
    const auto found = keys.find(event.key());
    const bool is_character = found == keys.end();
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return {.key = is_character ? TableKey::Character : found->second,
            .character = is_character ? character_of(event) : '\0',
            .shift = modifiers.testFlag(Qt::ShiftModifier),
            .control = modifiers.testAnyFlags(Qt::ControlModifier | Qt::AltModifier),
            .repeated = event.isAutoRepeat()};
}

}  // namespace solvanta::qt
