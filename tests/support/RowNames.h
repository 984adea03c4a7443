// Names of test rows that are texts of any kind.
#ifndef KORMAK_ROWNAMES_H
#define KORMAK_ROWNAMES_H

#include <QByteArray>
#include <QString>

namespace RowNames {

/// \a text on one line and between quotation marks.
inline QByteArray quoted(QString text)
{
    text.replace('\n', "\\n").replace('\r', "\\r").replace('\t', "\\t");
    return ('\'' + text + '\'').toUtf8();
}

} // namespace RowNames

#endif
