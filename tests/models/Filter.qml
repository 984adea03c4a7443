// The parameters of a receiver that people look for, and the findings; the test gives parameterModel and findingModel.
import QtQuick 2.15
import Kormak 1.0

Item {
    property alias count: parameters.count
    property alias findings: messages.count
    property alias search: filter.search

    function groups() { return filter.GetGroups() }
    function showChanged() { filter.show = ParameterFilter.Changed }
    function showGroup(group) { filter.group = group }
    function rowOf(name) { return parameterModel.GetRow(name) }
    function restore() { parameterModel.RestoreDefaults() }
    function textIn(view, row) {
        const item = view.itemAtIndex(row)
        return item ? item.text : "no item"
    }
    function parameterAt(row) { return textIn(parameters, row) }
    function messageAt(row) { return textIn(messages, row) }

    width: 400
    height: 400

    ListView {
        id: parameters

        anchors.fill: parent
        model: ParameterFilter {
            id: filter

            sourceModel: parameterModel
        }
        delegate: Text { text: model.name + ": " + model.shownValue }
    }
    ListView {
        id: messages

        anchors.fill: parent
        model: findingModel
        delegate: Text { text: model.fieldPath + ": " + model.message }
    }
}
