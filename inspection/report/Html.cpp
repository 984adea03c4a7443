#include "inspection/report/Html_p.h"

#include <inspection/QuotedText_p.h>
#include <objectbase/QtCompat_p.h>

#include <algorithm>

namespace KORMAK::Inspection {

namespace {

/// What stands for \a c in a text and between double quotation marks; null: it stands for itself.
QStringView entityOf(QChar c)
{
    switch (c.unicode()) {
    case u'&':
        return u"&amp;";
    case u'<':
        return u"&lt;";
    case u'>':
        return u"&gt;";
    case u'"':
        return u"&quot;";
    default:
        return {};
    }
}

void append(QString &out, QStringView text)
{
    out.append(text.data(), static_cast<TESSEL::TextSize>(text.size()));
}

/// \a text has nothing in it that cannot be seen.
void appendEscaped(QString &out, QStringView text)
{
    qsizetype begin = 0; // of what needs no entity and is not written yet
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QStringView entity = entityOf(text[i]);
        if (entity.isNull())
            continue;
        append(out, text.mid(begin, i - begin));
        append(out, entity);
        begin = i + 1;
    }
    append(out, text.mid(begin));
}

bool isPlain(QStringView text)
{
    constexpr char16_t FirstPrintable = u' ';
    constexpr char16_t LastPrintable = u'~';
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= FirstPrintable && c.unicode() <= LastPrintable; });
}

void appendVisible(QString &out, QStringView text)
{
    if (isPlain(text)) // as nearly all texts are
        appendEscaped(out, text);
    else
        appendEscaped(out, oneLine(text.toString()));
}

} // namespace

void Html::begin(QStringView name, Attributes attributes)
{
    out += QLatin1Char('<');
    append(out, name);
    for (const auto &[key, value] : attributes) {
        out += QLatin1Char(' ');
        append(out, key);
        append(out, u"=\"");
        appendVisible(out, value);
        out += QLatin1Char('"');
    }
    out += QLatin1Char('>');
}

Html &Html::open(QStringView name, Attributes attributes)
{
    begin(name, attributes);
    openElements.push_back(name);
    return *this;
}

Html &Html::close()
{
    append(out, u"</");
    append(out, openElements.back());
    out += QLatin1Char('>');
    openElements.pop_back();
    return *this;
}

Html &Html::single(QStringView name, Attributes attributes)
{
    begin(name, attributes);
    return *this;
}

Html &Html::element(QStringView name, const QString &text, Attributes attributes)
{
    return open(name, attributes).text(text).close();
}

Html &Html::text(QStringView text, Lines lines)
{
    if (lines == Lines::Escaped) {
        appendVisible(out, text);
        return *this;
    }
    qsizetype begin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != QLatin1Char('\n') && text[i] != QLatin1Char('\t'))
            continue;
        appendVisible(out, text.mid(begin, i - begin));
        out += text[i];
        begin = i + 1;
    }
    appendVisible(out, text.mid(begin));
    return *this;
}

Html &Html::constant(QStringView text)
{
    append(out, text);
    return *this;
}

Html &Html::add(const Html &other)
{
    out += other.out;
    return *this;
}

} // namespace KORMAK::Inspection
