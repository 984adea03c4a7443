// Not installed. The message patterns that all documents share. They begin with the name of the object
// concerned and are put together without placeholders, so that a value which looks like one comes out
// unchanged.
#ifndef TESSEL_MESSAGES_P_H
#define TESSEL_MESSAGES_P_H

#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>
#include <objectbase/Text_p.h>

namespace TESSEL {

namespace Messages {

/// "Object: message"
[[nodiscard]] inline QString about(const QString &object, QStringView message)
{
    return object + borrowed(u": ") + message.toString();
}

[[nodiscard]] inline QString pleaseSet(const QString &object, QStringView field)
{
    return about(object, u"Please set ") + field.toString();
}

[[nodiscard]] inline QString invalid(const QString &object, QStringView field, const QString &value)
{
    return about(object, u"Invalid ") + field.toString() + borrowed(u" '") + value + borrowed(u"'");
}

[[nodiscard]] inline QString unknownTag(const QString &object, QStringView tag)
{
    return borrowed(u"Unknown Tag '%1' in '%2'.").arg(tag.toString(), object);
}

[[nodiscard]] inline QString unknownParameter(const QString &object, const QString &uniqueName)
{
    return borrowed(u"Unknown Parameter '%1' in '%2'.").arg(uniqueName, object);
}

[[nodiscard]] inline QString antennaDataRefused(const QString &object, const QString &resource)
{
    return borrowed(u"Antenna data cannot be set for resource '%1' in '%2'.").arg(resource, object);
}

[[nodiscard]] inline QString cannotOpen(const QString &path)
{
    return borrowed(u"Can't open file for reading: '%1'").arg(path);
}

[[nodiscard]] inline QString corrupted(const QString &object)
{
    return about(object, u"Corrupted XML or it does not meet the our format!");
}

[[nodiscard]] inline QString notRepresentable(const QString &object)
{
    return about(object, u"Text cannot be represented in XML");
}

} // namespace Messages

[[noreturn]] inline void fail(const QString &message)
{
    throw TesselException(message);
}

/// Stores \a value into \a field of \a object when it is valid, otherwise throws and changes nothing.
template <class Value>
void storeValid(const ITesselObject &object, Value &field, Value value, bool isValid, QStringView fieldName)
{
    if (!isValid)
        fail(Messages::invalid(object.GetObjectName(), fieldName, numberText(value)));
    field = value;
}

} // namespace TESSEL

#endif
