#ifndef KORMAK_GENERICRECEIVER_H
#define KORMAK_GENERICRECEIVER_H

#include <kormak/kormak_export.h>
#include <kormak/Parameter.h>
#include <objectbase/ITesselObject.h>

#include <QMap>
#include <QString>

namespace KORMAK {

/// The description of a receiver: its parameters by unique name. Copying a receiver costs no copy of its
/// parameters.
///
/// \snippet docs/KormakSnippetsTest.cpp GenericReceiver
///
/// A receiver is complete when all its parameters are; one incomplete parameter keeps the whole receiver from
/// being written.
class KORMAK_EXPORT GenericReceiver : public TESSEL::ITesselObject {
public:
    GenericReceiver();
    GenericReceiver(const GenericReceiver &other);
    GenericReceiver &operator=(const GenericReceiver &other);
    ~GenericReceiver() override;

    /// Stores a copy under the unique name of \a parameter, in place of one that is there. Nothing is
    /// checked; an empty name is a name.
    void AddParameter(const Parameter &parameter);

    /// A copy of the parameter.
    /// \throws TesselException "Unknown Parameter '...' in '...'."
    [[nodiscard]] Parameter GetParameter(const QString &uniqueName) const;

    /// All parameters in ascending order of their keys. Changing the unique name of a parameter here does not
    /// change its key.
    [[nodiscard]] QMap<QString, Parameter> &GetParameterList() noexcept { return parameterList; }
    [[nodiscard]] const QMap<QString, Parameter> &GetParameterList() const noexcept { return parameterList; }

    /// Reads the UTF-8 file \a path into \a text, without a byte order mark and with line feeds as line
    /// ends; the receiver does not change.
    /// \throws TesselException "Can't open file for reading: '...'"; \a text does not change then
    void Load(const QString &path, QString &text) const;

    /// Reads the receiver description in the UTF-8 file \a path into this receiver. Parameters that the
    /// description does not mention stay.
    /// \throws TesselException as Load(), "...: Corrupted XML or it does not meet the our format!", and what
    /// reading throws
    void ImportXML(const QString &path);

    /// Compares the versions and the parameters with their keys.
    [[nodiscard]] bool operator==(const GenericReceiver &other) const;
    [[nodiscard]] bool operator!=(const GenericReceiver &other) const { return !(*this == other); }

    /// Every parameter is complete; true for a receiver without parameters.
    [[nodiscard]] bool HasData() const override;
    /// Always true.
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// The parameters are not checked one by one.
    /// \throws TesselException "...: Please set ParameterList" for an incomplete receiver without parameters;
    /// there is none of this class itself
    void Check() const override;
    [[nodiscard]] const QString &GetVersion() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    /// \endcond
    /// Reads the element. Each "Parameter" is stored in place of one of the same unique name; a "Script" is
    /// ignored. What a "Parameter" does not mention has its default value, except for values of integer
    /// and long parameters without a default, the maximum length of double lists and the default and selected
    /// entries of enumerations: they are those of the parameter that was read before.
    void ProcessXml(QXmlStreamReader &reader) override;

protected:
    /// \cond
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct KORMAK_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    QString version;
    Parameter readingParameter; // reset before each use; see ProcessXml() for what a reset leaves
    QMap<QString, Parameter> parameterList;
};

/// Writes the name of the object and all of its fields that are set, in a line.
KORMAK_EXPORT QDebug operator<<(QDebug debug, const GenericReceiver &object);

} // namespace KORMAK

#endif
