// The fields of a document, which the test gives as fieldModel.
import QtQuick 2.15

ListView {
    id: view

    function setText(row, text) { itemAtIndex(row).setText(text) }

    width: 400
    height: 400
    model: fieldModel
    //! [delegate]
    delegate: Text {
        function setText(text) { model.text = text }

        text: model.label + ": " + model.shownText
        color: model.severity < 0 ? "black" : "red"
    }
    //! [delegate]
}
