// Documents look the same in every locale. Runs every test function of a class in the locale of the user and
// in one with other number formats: call addLocales() in initTestCase_data(), useLocale() in init() and
// restoreLocale() in cleanup().
#ifndef KORMAK_LOCALERUNS_H
#define KORMAK_LOCALERUNS_H

#include <QByteArray>
#include <QLocale>
#include <QtTest>

#include <clocale>

namespace LocaleRuns {

inline QByteArray &localeBefore()
{
    static QByteArray name;
    return name;
}

inline void addLocales()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("locale of the user") << QLocale();
    QTest::newRow("German locale") << QLocale(QLocale::German);
}

inline void useLocale()
{
    QFETCH_GLOBAL(QLocale, locale);
    QLocale::setDefault(locale);
    localeBefore() = std::setlocale(LC_ALL, nullptr);
    if (locale.language() == QLocale::German)
        std::setlocale(LC_ALL, "de_DE.UTF-8"); // changes nothing where the system does not have it
}

inline void restoreLocale()
{
    std::setlocale(LC_ALL, localeBefore().constData());
    QLocale::setDefault(QLocale::system());
}

} // namespace LocaleRuns

#endif
