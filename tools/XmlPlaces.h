// Where things stand in the text of an XML document, as offsets in code units. The readers given to these
// functions read a whole text, so that their characterOffset() is an offset in it.
#ifndef KORMAK_TOOLS_XMLPLACES_H
#define KORMAK_TOOLS_XMLPLACES_H

#include <QString>
#include <QStringView>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

/// Where the token begins that \a reader stands on: a start element, a comment, a processing instruction or a
/// document type.
[[nodiscard]] qsizetype startOfToken(const QXmlStreamReader &reader, const QString &text);

/// The element that a reader of \a text was in, or had just left, when it had come to \a offset.
[[nodiscard]] qsizetype elementReadAt(const QString &text, qsizetype offset);

/// The first element called \a name, or the root element when none is.
[[nodiscard]] qsizetype elementNamed(const QString &text, QStringView name);

/// What \a reader has come upon that made it give up.
[[nodiscard]] qsizetype placeOfError(const QXmlStreamReader &reader, const QString &text);

#endif
