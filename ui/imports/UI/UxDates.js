.pragma library

// Dates are text "yyyy-MM-dd" at the controls' borders and local midnights inside.
var format = "yyyy-MM-dd"
// Dates are stored as milliseconds since 1970, and 0 is no date: a day earlier this day has not begun everywhere.
var earliest = new Date(1970, 0, 2)

// A year of four digits, month and day, also without leading zeros, between "-", "/", ".", blanks or the Chinese words; or
// eight digits.
var written = /^(\d{4})(?:\s*[-\/.年\s]\s*(\d{1,2})\s*[-\/.月\s]\s*(\d{1,2})\s*日?|(\d{2})(\d{2}))$/

function read(text) {
    // Input methods give digits and signs of full width, too.
    var narrow = text.replace(/[\uff01-\uff5e]/g, function (sign) {
        return String.fromCharCode(sign.charCodeAt(0) - 0xfee0)
    })
    var parts = written.exec(narrow.trim())
    if (!parts)
        return null
    var month = Number(parts[2] || parts[4]) - 1
    var date = new Date(Number(parts[1]), month, Number(parts[3] || parts[5]))
    return date.getFullYear() === Number(parts[1]) && date.getMonth() === month ? date : null
}

// The local midnight of a date or of its text; null for none.
function parse(value) {
    if (value === undefined || value === null || value === "")
        return null
    if (typeof value === "string")
        return read(value)
    var date = new Date(value)
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
