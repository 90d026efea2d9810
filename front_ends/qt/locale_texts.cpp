#include "front_ends/qt/locale_texts.h"

#include <QRegularExpression>

namespace solvanta::qt {
namespace {

QString time_separator(const QLocale& locale) {
    static const QRegularExpression between("[hH]++([^m]*)m");
    QString text = between.match(locale.timeFormat(QLocale::ShortFormat)).captured(1);
    text.remove('\'');
    return text.isEmpty() ? ":" : text;
}

}  // namespace

LocaleTexts texts_of(const QLocale& locale) {
    LocaleTexts texts;
    for (int month = 1; month <= 12; ++month) {
        QString name = locale.monthName(month, QLocale::ShortFormat);
        if (name.endsWith('.')) name.chop(1);
        texts.month_abbreviations.at(static_cast<std::size_t>(month - 1)) = name.toStdString();
    }
    texts.time_separator = time_separator(locale).toStdString();
    texts.decimal_separator = locale.decimalPoint().toStdString();
    return texts;
}

}  // namespace solvanta::qt
