// Not installed. The message patterns that all documents share, each thrown as a TesselException. They begin
// with the name of the object concerned and are put together without placeholders, so that a value which
// looks like one comes out unchanged.
#ifndef TESSEL_MESSAGES_P_H
#define TESSEL_MESSAGES_P_H

#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>
#include <objectbase/Text_p.h>

namespace TESSEL {

[[noreturn]] inline void throwMessage(const ITesselObject &object, QStringView message)
{
    throw TesselException(object.GetObjectName() + borrowed(u": ") + message.toString());
}

/// "Object: Please set Field"
[[noreturn]] inline void throwPleaseSet(const ITesselObject &object, QStringView field)
{
    throwMessage(object, QString(borrowed(u"Please set ") + field.toString()));
}

/// "Object: Invalid Field 'value'"
[[noreturn]] inline void throwInvalid(const ITesselObject &object, QStringView field, const QString &value)
{
    throwMessage(
        object, QString(borrowed(u"Invalid ") + field.toString() + borrowed(u" '") + value + borrowed(u"'")));
}

/// Stores \a value into \a field of \a object when it is valid, otherwise throws and changes nothing.
template <class Value>
void storeValid(const ITesselObject &object, Value &field, Value value, bool isValid, QStringView fieldName)
{
    if (!isValid)
        throwInvalid(object, fieldName, numberText(value));
    field = value;
}

/// "Unknown Tag 'tag' in 'Object'."
[[noreturn]] inline void throwUnknownTag(const ITesselObject &object, QStringView tag)
{
    throw TesselException(borrowed(u"Unknown Tag '%1' in '%2'.").arg(tag.toString(), object.GetObjectName()));
}

} // namespace TESSEL

#endif
