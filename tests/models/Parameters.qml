// The parameters of a receiver, which the test gives as parameterModel.
import QtQuick 2.15

ListView {
    id: view

    function setValue(row, value) { itemAtIndex(row).setValue(value) }

    width: 400
    height: 400
    model: parameterModel
    delegate: Text {
        function setValue(value) { model.value = value }

        text: model.name + ": " + model.shownValue
        font.bold: model.changed
    }
}
