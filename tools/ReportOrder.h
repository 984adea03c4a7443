// The option --sort of the command that makes pages.
#ifndef KORMAK_TOOLS_REPORTORDER_H
#define KORMAK_TOOLS_REPORTORDER_H

#include <inspection/ReportIndex.h>

#include <QCommandLineOption>
#include <QStringList>
#include <QStringView>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

namespace ReportOrder {

/// What the help calls a value of the option.
inline constexpr QStringView ValueName = u"ORDER";

[[nodiscard]] QCommandLineOption option();
[[nodiscard]] QStringList names();
[[nodiscard]] bool isSet(const QCommandLineParser &parser);

/// By name unless told otherwise. \throws UsageError for an unknown order, and for several
[[nodiscard]] KORMAK::ReportIndex::Order of(const QCommandLineParser &parser);

} // namespace ReportOrder

#endif
