import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// A simple table of cells that share their border lines.
GridLayout {
    property color tableBorderColor: UxTheme.gridBorder

    columnSpacing: -1
    rowSpacing: -1
}
