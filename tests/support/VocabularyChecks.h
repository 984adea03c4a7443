// The checks that every vocabulary needs. Describe the vocabulary once, in a function of the test,
//     Vocabulary<Colour> colours() { return {{"Red", "Blue"}, "undefined", ColourToName, NameToColour,
//     IsValidColour,
//                                            GetInvalidColour}; }
// and hand it to each pair of slots: addNames() and checkName(), addUnknownNames() and checkUnknownName(),
// addValues() and checkValue().
#ifndef KORMAK_VOCABULARYCHECKS_H
#define KORMAK_VOCABULARYCHECKS_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <QtTest>

#include <functional>
#include <limits>
#include <type_traits>

namespace VocabularyChecks {

template <class Enum>
struct Vocabulary {
    QStringList names; ///< what is read, in order of value from 0
    QString nameOfUnknownValues; ///< a null text is expected to come out null
    std::function<QString(Enum)> toName;
    std::function<Enum(const QString &)> fromName;
    std::function<bool(Enum)> isValid;
    std::function<Enum()> getInvalid; ///< empty where there is no such function
    QMap<int, QString> writtenNames = {}; ///< what is written, where it differs from what is read
};

template <class Enum>
void addNames(const Vocabulary<Enum> &vocabulary)
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("name");

    for (int value = 0; value < vocabulary.names.size(); ++value)
        QTest::newRow(qPrintable(vocabulary.names[value])) << value << vocabulary.names[value];
}

/// A name and its value, both ways.
template <class Enum>
void checkName(const Vocabulary<Enum> &vocabulary)
{
    QFETCH(int, value);
    QFETCH(QString, name);

    QCOMPARE(static_cast<int>(vocabulary.fromName(name)), value);
    QCOMPARE(vocabulary.toName(static_cast<Enum>(value)), vocabulary.writtenNames.value(value, name));
    QCOMPARE(vocabulary.names.count(name), 1);
}

/// Every name, changed a little in each way that an exact comparison tells apart.
template <class Enum>
void addUnknownNames(const Vocabulary<Enum> &vocabulary)
{
    QTest::addColumn<QString>("name");

    const auto add = [&vocabulary](const QString &description, const QString &name) {
        if (!vocabulary.names.contains(name))
            QTest::newRow(qPrintable(description)) << name;
    };
    add("null", QString());
    add("empty", QString(""));
    add("blank", " ");
    add("undefined", "undefined");
    add("first value as a number", "0");
    add("invalid value as a number", "-1");
    for (const QString &name : vocabulary.names) {
        add(name + ", lower case", name.toLower());
        add(name + ", upper case", name.toUpper());
        add(name + ", blank in front", ' ' + name);
        add(name + ", blank behind", name + ' ');
        add(name + ", line feed behind", name + '\n');
        add(name + ", one character missing in front", name.mid(1));
        add(name + ", one character missing behind", name.chopped(1));
        add(name + ", one character more", name + name.back());
        add(name + ", NUL behind", name + QChar(0));
    }
}

template <class Enum>
void checkUnknownName(const Vocabulary<Enum> &vocabulary)
{
    QFETCH(QString, name);
    QCOMPARE(static_cast<int>(vocabulary.fromName(name)), -1);
}

template <class Enum>
void addValues(const Vocabulary<Enum> &vocabulary)
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isKnown");

    const int count = vocabulary.names.size();
    QTest::newRow("smallest number") << std::numeric_limits<int>::min() << false;
    QTest::newRow("second negative number") << -2 << false;
    QTest::newRow("not set") << -1 << false;
    QTest::newRow("first") << 0 << true;
    QTest::newRow("last") << count - 1 << true;
    QTest::newRow("behind the last") << count << false;
    QTest::newRow("last in the low byte") << 256 + count - 1 << false;
    QTest::newRow("last in the low word") << 65536 + count - 1 << false;
    QTest::newRow("greatest number") << std::numeric_limits<int>::max() << false;
}

/// The valid range, the name of values outside it, and the value that means "not set".
template <class Enum>
void checkValue(const Vocabulary<Enum> &vocabulary)
{
    static_assert(sizeof(Enum) == 4 && std::is_signed_v<std::underlying_type_t<Enum>>);
    QFETCH(int, value);
    QFETCH(bool, isKnown);
    const auto enumerator = static_cast<Enum>(value);

    QCOMPARE(vocabulary.isValid(enumerator), isKnown);
    if (!isKnown) {
        const QString name = vocabulary.toName(enumerator);
        QCOMPARE(name, vocabulary.nameOfUnknownValues);
        QCOMPARE(name.isNull(), vocabulary.nameOfUnknownValues.isNull());
    }
    if (vocabulary.getInvalid)
        QCOMPARE(static_cast<int>(vocabulary.getInvalid()), -1);
}

} // namespace VocabularyChecks

#endif
