import QtQuick 2.12

// The tree of catalogs and people.
UxTreeView {
}
