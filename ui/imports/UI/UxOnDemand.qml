import QtQuick 2.12

// A menu or pop-up that is loaded when it is first wanted. Named by its file: a component in the page would have all its
// types loaded with the page.
Loader {
    property url file

    // The menu or pop-up. `connect(it)` is called once, when it has been made with these properties.
    function wanted(properties, connect) {
        if (status === Loader.Null) {
            setSource(file, properties)
            if (connect)
                connect(item)
        }
        return item
    }
}
