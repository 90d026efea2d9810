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

/// A window that changes its colour at each press of the mouse.
class BlinkingWindow final : public QWidget {
  protected:
    void mousePressEvent(QMouseEvent* /*event*/) override {
        dark_ = !dark_;
        update();
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).fillRect(rect(), dark_ ? Qt::darkGreen : Qt::white);
    }

  private:
    bool dark_ = false;
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
/// argument "word" a single word, which needs fonts; or, with "blink", one that answers the mouse.
int main(int argc, char** argv) {
    const std::string_view what = argc > 1 ? argv[1] : "";
    QApplication application(argc, argv);
    if (what == "blink") return show_window<BlinkingWindow>();
    return what == "word" ? show_window<WordWindow>() : show_window<QWidget>();
}
