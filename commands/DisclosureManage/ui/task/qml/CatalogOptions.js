.pragma library

// What the page asks to be done to the catalogs; the window's code knows the same numbers.
var create = 0
var remove = 2
var moveUp = 3
var moveDown = 4
var rename = 5
