// Where a kind of document deliberately writes something else than it reads, or is not equal to itself.
// Whatever is not named here is read back as it was written.
#ifndef KORMAK_FUZZ_KINDS_H
#define KORMAK_FUZZ_KINDS_H

#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <objectbase/Area.h>

#include <algorithm>
#include <cmath>

namespace Fuzz {

/// A kind that is read back whole.
template <class Document>
struct WholeKind {
    static bool equalsItself(const Document & /*document*/) { return true; }
    /// True when all that counts for equality is written, exactly.
    static bool isReadBackWhole(const Document & /*document*/) { return true; }
    /// Puts into \a back, read from what \a document writes, what writing or reading leaves out.
    static void restoreUnread(Document & /*back*/, const Document & /*document*/) { }
};

template <class Document>
struct Kind : WholeKind<Document> {
};

template <>
struct Kind<TESSEL::Area> : WholeKind<TESSEL::Area> {
    static bool equalsItself(const TESSEL::Area &area)
    {
        return std::none_of(area.GetCoordinate().begin(), area.GetCoordinate().end(), [](const auto &c) {
            return std::isnan(c.GetLatitude()) || std::isnan(c.GetLongitude());
        });
    }
};

template <>
struct Kind<KORMAK::AutomaticWorkflow> : WholeKind<KORMAK::AutomaticWorkflow> {
    using Workflow = KORMAK::AutomaticWorkflow;

    static bool equalsItself(const Workflow &workflow)
    {
        return Kind<TESSEL::Area>::equalsItself(workflow.GetArea());
    }
    /// Manual mode writes no settings, and an area without a name vanishes.
    static bool isReadBackWhole(const Workflow &workflow)
    {
        return workflow.GetWorkflowMode() == Workflow::AutomaticMode
            && workflow.GetArea().HasData() == workflow.GetArea().AnyData();
    }
    /// The mode is written as an attribute and read from an element.
    static void restoreUnread(Workflow &back, const Workflow &workflow)
    {
        back.SetWorkflowMode(workflow.GetWorkflowMode());
    }
};

template <>
struct Kind<KORMAK::Parameter> {
    using Parameter = KORMAK::Parameter;

    static bool equalsItself(const Parameter &parameter)
    {
        if (parameter.IsDouble() || parameter.IsDoubleList())
            return !holdsNan(parameter.GetDoubleHandler());
        if (parameter.IsFloat())
            return !holdsNan(parameter.GetFloatHandler());
        if (parameter.IsEnum())
            return !holdsNan(parameter.GetEnumHandler());
        return parameter.GetParameterType() != KORMAK::ParameterType::Invalid;
    }

    /// Values are not written and numbers are rounded.
    static bool isReadBackWhole(const Parameter & /*parameter*/) { return false; }

    static void restoreUnread(Parameter &back, const Parameter &parameter)
    {
        if (parameter.IsBoolean()) // the type of a boolean parameter is not written
            back.SetParameterType(KORMAK::ParameterType::Boolean);
        if (parameter.IsString()) // the default of a string is written as an attribute, read from an element
            back.SetStringHandler(parameter.GetStringHandler());
        // The value is that of the default, which may have been rounded to the one that means "none".
        back.GetDoubleHandler().SetValue(parameter.GetDoubleHandler().GetValue());

        restoreRounded(back.GetDoubleHandler(), parameter.GetDoubleHandler());
        restoreRounded(back.GetFloatHandler(), parameter.GetFloatHandler());
        auto &entries = back.GetEnumHandler().GetEnumList();
        const auto &originals = parameter.GetEnumHandler().GetEnumList();
        for (int i = 0; i < std::min<int>(entries.size(), originals.size()); ++i)
            entries[i].Value = restored(entries.at(i).Value, originals.at(i).Value, TwoDecimals);
        const double multiplier = parameter.GetMultiplier();
        back.SetMultiplier(std::abs(multiplier - 1) <= TwoDecimals // written as 1, which is not written
                               ? multiplier
                               : restored(back.GetMultiplier(), multiplier, TwoDecimals));
    }

private:
    // The most that rounding takes away
    static constexpr double TwoDecimals = 0.5e-2;
    static constexpr double SixDecimals = 0.5e-6;

    template <class NumericHandler>
    static bool holdsNan(const NumericHandler &handler)
    {
        return std::isnan(handler.GetMinimum()) || std::isnan(handler.GetMaximum())
            || std::isnan(handler.GetDefault()) || std::isnan(handler.GetValue());
    }
    static bool holdsNan(const KORMAK::EnumHandler &handler)
    {
        return std::isnan(handler.GetDefaultValue().Value) || std::isnan(handler.GetSelectedEnumValue().Value)
            || std::any_of(handler.GetEnumList().begin(), handler.GetEnumList().end(),
                           [](const auto &entry) { return std::isnan(entry.Value); });
    }

    /// A negative number that is rounded to zero keeps its sign in the text but loses it when read.
    template <class Number>
    static Number restored(Number number, Number original, double rounding)
    {
        return original < 0 && double(original) >= -rounding ? original : number;
    }
    template <class NumericHandler>
    static void restoreRounded(NumericHandler &back, const NumericHandler &original)
    {
        back.SetMinimum(restored(back.GetMinimum(), original.GetMinimum(), SixDecimals));
        back.SetMaximum(restored(back.GetMaximum(), original.GetMaximum(), SixDecimals));
        back.SetDefault(restored(back.GetDefault(), original.GetDefault(), SixDecimals));
    }
};

template <>
struct Kind<KORMAK::GenericReceiver> {
    using Receiver = KORMAK::GenericReceiver;
    static bool equalsItself(const Receiver &receiver)
    {
        const auto &parameters = receiver.GetParameterList();
        return std::all_of(parameters.begin(), parameters.end(), Kind<KORMAK::Parameter>::equalsItself);
    }
    static bool isReadBackWhole(const Receiver & /*receiver*/) { return false; }
    static void restoreUnread(Receiver &back, const Receiver &receiver)
    {
        const auto &parameters = receiver.GetParameterList();
        for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter) {
            const auto found = back.GetParameterList().find(parameter.key());
            if (found != back.GetParameterList().end())
                Kind<KORMAK::Parameter>::restoreUnread(*found, *parameter);
        }
    }
};

} // namespace Fuzz

#endif
