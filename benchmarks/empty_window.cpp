#include <string_view>

#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace {

/// A window that shows one word, in the toolkit's own font.
class WordWindow final : public QWidget {
  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).drawText(rect(), Qt::AlignCenter, "Wort");
    }
};

template <typename Window>
int show_window() {
    Window window;
    window.setFixedSize(822, 520);
    window.show();
    return QApplication::exec();
}

}  // namespace

/// The least that a program with a window of the card table's size is: nothing in it, or with the
/// argument "word" a single word, which needs fonts.
int main(int argc, char** argv) {
    const bool word = argc > 1 && std::string_view(argv[1]) == "word";
    QApplication application(argc, argv);
    return word ? show_window<WordWindow>() : show_window<QWidget>();
}
