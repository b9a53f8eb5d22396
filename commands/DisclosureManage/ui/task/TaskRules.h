#pragma once

#include <QDate>
#include <QString>

#include "sdk/packages/disclosure/Records.h"

/// A name as it can be stored: one line without the blanks around it; empty when nothing of it can be seen.
QString TidyName(const QString& typed);
/// One line of text: what was pasted may bring line breaks and other control characters, which become blanks.
QString OneLine(const QString& typed);
/// Text without control characters, but with its lines. Word processors part lines by characters of their own.
QString PlainLines(const QString& typed);

/// The message of the rule that a tidy name breaks; empty when it breaks none. Its length is the service's to judge.
QString BrokenNameRule(const QString& name);
/// The message that construction starts after its end; empty when it does not.
QString StartsAfterEnd(const DISCLOSUREPACKAGE::TaskRecord& task);
QString TooManyDocuments();
/// A rule that a task breaks: the property of its editor that is to be mended, and what the user is told.
struct BrokenRule {
    QString field;
    QString message;
};
/// The first rule that keeps `task` from being saved as a plan or published; empty when none does. The name counts as
/// it stands, without its blanks being trimmed.
BrokenRule FirstBrokenRule(const DISCLOSUREPACKAGE::TaskRecord& task, QDate today);
