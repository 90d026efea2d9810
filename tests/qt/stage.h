#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "front_ends/qt/host.h"

namespace solvanta::qt {

/// A small form: 300 x 200 pixels in red.
struct TestForm : Form {
    TestForm() {
        Caption = "Probe";
        ClientWidth = 300 * twips_per_pixel;
        ClientHeight = 200 * twips_per_pixel;
        BackColor = Color{255, 0, 0};
    }

    PictureElement& add_picture(int left, int top, int width, int height) {
        PictureElement& element = pictures.emplace_back();
        place(element, left, top, width, height);
        canvas.emplace_back(&element);
        return element;
    }

    /// Puts an element somewhere; everything in pixels.
    static void place(Element& element, int left, int top, int width, int height) {
        element.Left = left * twips_per_pixel;
        element.Top = top * twips_per_pixel;
        element.Width = width * twips_per_pixel;
        element.Height = height * twips_per_pixel;
    }

    std::deque<PictureElement> pictures;
};

/// The visible window with this caption; null if there is none.
inline QWidget* find_window(const QString& caption = "Probe") {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == caption) return window;
    }
    return nullptr;
}

inline QWidget& shown(Host& host, Form& form) {
    host.show(form);
    QWidget* window = find_window(QString::fromStdString(form.Caption));
    EXPECT_TRUE(window && QTest::qWaitForWindowActive(window));
    return *window;
}

/// Clicks a control through its window, so that everything on the way has its say.
inline void click(const QWidget* widget) {
    ASSERT_TRUE(widget);
    QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {},
                      widget->mapTo(widget->window(), widget->rect().center()));
}

/// Runs `act` on the message box that is about to open, a moment after it has opened.
inline void when_box_opens(std::function<void(QMessageBox&)> act, int after_ms = 30) {
    QTimer::singleShot(after_ms, qApp, [act = std::move(act)] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(box));
        act(*box);
    });
}

}  // namespace solvanta::qt
