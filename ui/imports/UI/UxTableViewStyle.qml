import QtQuick 2.12

// The look of a table over a model.
UxBasicTableViewStyle {
}
