.pragma library

// Dates are text "yyyy-MM-dd" at the controls' borders and local midnights inside.
var format = "yyyy-MM-dd"

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

function within(date, minimum, maximum) {
    var first = parse(minimum)
    var last = parse(maximum)
    return (!first || date >= first) && (!last || date <= last)
}

function clamp(date, minimum, maximum) {
    var first = parse(minimum)
    var last = parse(maximum)
    return first && date < first ? first : last && date > last ? last : date
}

function addDays(date, days) {
    return new Date(date.getFullYear(), date.getMonth(), date.getDate() + days)
}

// The same day of another month, or that month's last day.
function addMonths(date, months) {
    var last = new Date(date.getFullYear(), date.getMonth() + months + 1, 0)
    return new Date(last.getFullYear(), last.getMonth(), Math.min(date.getDate(), last.getDate()))
}
