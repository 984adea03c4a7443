#ifndef KORMAK_ENUMHANDLER_H
#define KORMAK_ENUMHANDLER_H

#include <kormak/kormak_export.h>
#include <kormak/TypeHandler.h>

#include <QString>
#include <QVector>

// Handlers are values, and nobody destroys one through a base.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

namespace KORMAK {

/// Holds a choice from a list of entries: the list, the entry that is the default and the entry that is
/// selected. The latter two are copies; they need not stand in the list, and Reset() empties the list alone.
///
/// \snippet docs/KormakSnippetsTest.cpp EnumHandler
class KORMAK_EXPORT EnumHandler : public NamedHandler {
public:
    /// An entry: an aggregate whose fields are called as the attributes of its XML element.
    ///
    /// \snippet docs/KormakSnippetsTest.cpp EnumValue
    class KORMAK_EXPORT EnumValue {
    public:
        /// Default is compared as IsDefault().
        [[nodiscard]] bool operator==(const EnumValue &other) const;
        [[nodiscard]] bool operator!=(const EnumValue &other) const { return !(*this == other); }

        /// True exactly when Default is the text "true".
        [[nodiscard]] bool IsDefault() const;

        qint32 Key = -1; ///< need not be unique
        QString Name; ///< what GetEnumValue() looks for; need not be unique
        QString Identifier; ///< optional
        double Value = 0.0; ///< the number that the entry stands for
        QString Default; ///< "true" for the default entry of a list, otherwise "false" or empty
    };

    EnumHandler() = default;
    EnumHandler(const EnumHandler &other) = default;
    EnumHandler(EnumHandler &&other) noexcept;
    EnumHandler &operator=(const EnumHandler &other) = default;
    EnumHandler &operator=(EnumHandler &&other) noexcept;
    ~EnumHandler() = default;

    /// The entries in the order of the document. Setting or appending them checks nothing and leaves the
    /// default and the selected entry as they are.
    [[nodiscard]] QVector<EnumValue> &GetEnumList() noexcept { return enumList; }
    [[nodiscard]] const QVector<EnumValue> &GetEnumList() const noexcept { return enumList; }
    void SetEnumList(QVector<EnumValue> &list);
    void AppendEnumValue(const EnumValue &entry);

    /// The entry that is the default, and that a look-up gives when it finds none.
    [[nodiscard]] EnumValue &GetDefaultValue() noexcept { return defaultValue; }
    [[nodiscard]] const EnumValue &GetDefaultValue() const noexcept { return defaultValue; }
    void SetDefaultValue(const EnumValue &entry);

    /// The entry that is selected.
    [[nodiscard]] EnumValue &GetSelectedEnumValue() noexcept { return selectedValue; }
    [[nodiscard]] const EnumValue &GetSelectedEnumValue() const noexcept { return selectedValue; }
    void SetSelectedEnumValue(const EnumValue &entry);

    /// \name Look-up
    /// The first entry with that name (case-sensitive), key or value (exactly), or else the default entry.
    /// The reference is valid until the list changes. Where the handler is not const, the literal 0 could be a
    /// name as well as a key and does not compile.
    /// @{
    [[nodiscard]] const EnumValue &GetEnumValue(const QString &name);
    [[nodiscard]] const EnumValue &GetEnumValue(int key) const;
    [[nodiscard]] const EnumValue &GetEnumValue(double value) const;
    /// @}

    /// The list has entries.
    [[nodiscard]] bool HasData() const override;
    /// As HasData().
    [[nodiscard]] bool AnyData() const override;
    void Reset() override;

    /// Compares lists in their order, default and selected entries, and names.
    [[nodiscard]] bool operator==(const EnumHandler &other) const;
    [[nodiscard]] bool operator!=(const EnumHandler &other) const { return !(*this == other); }

private:
    QVector<EnumValue> enumList;
    EnumValue defaultValue;
    EnumValue selectedValue;
};

} // namespace KORMAK

QT_WARNING_POP

QT_BEGIN_NAMESPACE
Q_DECLARE_TYPEINFO(KORMAK::EnumHandler::EnumValue, Q_MOVABLE_TYPE);
QT_END_NAMESPACE

#endif
