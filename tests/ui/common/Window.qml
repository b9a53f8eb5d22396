import QtQuick 2.12

// A page with the signals that a window listens to.
Item {
    property string title: "页面"

    signal close()
    signal toggleMaximized()
    signal titlebarPressed()
    signal titlebarPositionChanged()
    signal titlebarDbClick()
    signal connectBimClick()

    property int marks: 0
    function mark() { ++marks }
}
