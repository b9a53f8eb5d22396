.pragma library

// Dates are text "yyyy-MM-dd" at the controls' borders and local midnights inside.
var format = "yyyy-MM-dd"
// Dates are stored as milliseconds since 1970, and 0 is no date: a day earlier this day has not begun everywhere.
var earliest = new Date(1970, 0, 2)

// The local midnight of a date or of its text; null for none.
function parse(value) {
    if (value === undefined || value === null || value === "")
        return null
    var date = typeof value === "string" ? Date.fromLocaleString(Qt.locale("C"), value, format) : new Date(value)
    return isNaN(date.getTime()) ? null : new Date(date.getFullYear(), date.getMonth(), date.getDate())
}

function toText(date) {
    return date ? Qt.formatDate(date, format) : ""
}

// The first day that is allowed.
function first(minimum) {
    return parse(minimum) || earliest
}

function within(date, minimum, maximum) {
    var last = parse(maximum)
    return date >= first(minimum) && (!last || date <= last)
}

function clamp(date, minimum, maximum) {
    var last = parse(maximum)
    return date < first(minimum) ? first(minimum) : last && date > last ? last : date
}

function addDays(date, days) {
    return new Date(date.getFullYear(), date.getMonth(), date.getDate() + days)
}

// The same day of another month, or that month's last day.
function addMonths(date, months) {
    var last = new Date(date.getFullYear(), date.getMonth() + months + 1, 0)
    return new Date(last.getFullYear(), last.getMonth(), Math.min(date.getDate(), last.getDate()))
}
