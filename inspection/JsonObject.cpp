#include "inspection/JsonObject_p.h"

#include <inspection/QuotedText_p.h>
#include <objectbase/TesselException.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QStringList>

#include <vector>

namespace KORMAK::Inspection {

namespace {

bool isNumberStart(char c)
{
    return c == '-' || (c >= '0' && c <= '9');
}

/// The end of the text or number that begins at \a begin in well-formed JSON, or of the character there.
int tokenEnd(const QByteArray &json, int begin)
{
    int end = begin + 1;
    if (json.at(begin) == '"') {
        while (end < json.size() && json.at(end) != '"')
            end += json.at(end) == '\\' ? 2 : 1;
        ++end;
    } else if (isNumberStart(json.at(begin))) {
        while (end < json.size() && QByteArray("0123456789.eE+-").contains(json.at(end)))
            ++end;
    }
    return std::min(end, static_cast<int>(json.size()));
}

/// Qt 5 reads all numbers as doubles.
QByteArray withLongNumbersAsTexts(const QByteArray &json)
{
    constexpr int MostDigits = 15; // that every double holds
    QByteArray result;
    for (int i = 0; i < json.size();) {
        const int end = tokenEnd(json, i);
        const QByteArray token = json.mid(i, end - i);
        const bool isWhole = isNumberStart(token.at(0)) && !token.contains('.') && !token.contains('e')
            && !token.contains('E');
        result += isWhole && token.size() > MostDigits ? '"' + token + '"' : token;
        i = end;
    }
    return result;
}

QString textOf(const QByteArray &token)
{
    return QJsonDocument::fromJson('[' + token + ']').array().at(0).toString();
}

/// Of members of one name, QJsonObject keeps the last. \a json is well-formed.
void refuseRepeatedNames(const QByteArray &json)
{
    std::vector<QSet<QString>> open; // the names in the objects around; arrays have none
    QByteArray last;
    for (int i = 0; i < json.size();) {
        const int end = tokenEnd(json, i);
        const char c = json.at(i);
        if (c == '{' || c == '[') {
            open.emplace_back();
        } else if (c == '}' || c == ']') {
            open.pop_back();
        } else if (c == '"') {
            last = json.mid(i, end - i);
        } else if (c == ':') {
            const QString name = textOf(last);
            if (open.back().contains(name)) {
                throw TESSEL::TesselException(
                    QStringLiteral("holds two members called %1 in one object, before byte %2")
                        .arg(quoted(name))
                        .arg(i));
            }
            open.back().insert(name);
        }
        i = end;
    }
}

} // namespace

QJsonObject jsonObjectOf(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument parsed = QJsonDocument::fromJson(withLongNumbersAsTexts(json), &error);
    if (error.error != QJsonParseError::NoError) {
        throw TESSEL::TesselException(
            QStringLiteral("is no JSON: %1 at byte %2").arg(error.errorString()).arg(error.offset));
    }
    if (!parsed.isObject())
        throw TESSEL::TesselException(QStringLiteral("is no JSON object"));
    refuseRepeatedNames(json);
    return parsed.object();
}

} // namespace KORMAK::Inspection
