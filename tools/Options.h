// Options of commands, and what a call gives them.
#ifndef KORMAK_TOOLS_OPTIONS_H
#define KORMAK_TOOLS_OPTIONS_H

#include <QCommandLineOption>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <utility>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

/// A list of Qt that holds \a items. Made of braces, Qt 6 does not notice when there is no memory for it.
template <class List, class... Items>
[[nodiscard]] List listOf(Items &&...items)
{
    List list;
    (list.push_back(std::forward<Items>(items)), ...);
    return list;
}

/// The option --\a name, which takes what the help calls \a value; empty: nothing. A name of one letter has
/// one dash.
[[nodiscard]] QCommandLineOption optionCalled(QStringView name, const QString &description,
                                              QStringView value = {});
/// The same with a short name in front.
[[nodiscard]] QCommandLineOption optionCalled(QChar letter, QStringView name, const QString &description,
                                              QStringView value = {});

/// The value of an option that can be given once; nothing when it is not given. \throws UsageError
[[nodiscard]] std::optional<QString> onlyValue(const QCommandLineParser &parser, QStringView option);

/// \throws UsageError when several of \a files are standard input
void checkStandardInput(const QStringList &files);

#endif
