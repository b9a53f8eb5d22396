#include "service/domain/TaskChecks.h"

#include <set>
#include <utility>

#include "service/domain/Refusal.h"
#include "service/domain/Tasks.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::size_t LongestTaskName = 128;
constexpr std::size_t LongestRemark = 300;  // as much as the editor shows

template <class Element>
void checkIds(const std::vector<Element>& list) {
    std::set<std::string> ids;
    for (const Element& element : list) {
        if (element.id.empty())
            continue;
        if (!isId(element.id))
            throw Refusal(reasons::BadElementId);
        if (!ids.insert(element.id).second)
            throw Refusal(reasons::ElementTwice);
    }
}

void checkLinks(const TaskContent& content) {
    if (content.viewports.size() + content.nodes.size() > Tasks::MostLinks)
        throw Refusal(reasons::TooManyLinks);
    std::set<std::pair<std::int32_t, std::string>> viewports;
    for (const TaskViewport& viewport : content.viewports) {
        checkField(viewport.viewportId, LongestKey);
        if (!viewports.emplace(viewport.ppid, viewport.viewportId).second)
            throw Refusal(reasons::LinkTwice);
    }
    std::set<std::pair<std::int32_t, std::string>> nodes;
    for (const TaskNode& node : content.nodes) {
        checkField(node.nodeId, LongestKey);
        if (!nodes.emplace(node.ppid, node.nodeId).second)
            throw Refusal(reasons::LinkTwice);
    }
}

void checkDates(TaskContent& content) {
    for (std::int64_t* date : {&content.constructionStart, &content.constructionEnd, &content.planDisclosure,
                               &content.actualDisclosure, &content.expiry}) {
        if (*date > LastDate)
            throw Refusal(reasons::BadDate);
        if (*date < 0)
            *date = 0;
    }
    if (content.constructionStart != 0 && content.constructionEnd != 0 &&
        content.constructionStart > content.constructionEnd)
        throw Refusal(reasons::EndsBeforeStart);
}

}  // namespace

void checkField(const std::string& text, std::size_t longest) {
    if (lengthOf(text) > longest || hasControls(text, false))
        throw Refusal(reasons::FieldTooLong);
}

void checkRemark(const std::string& remark) {
    if (lengthOf(remark) > LongestRemark)
        throw Refusal(reasons::RemarkTooLong);
    if (hasControls(remark, true))
        throw Refusal(reasons::RemarkForbidden);
}

void checkAttachments(const std::vector<TaskAttachment>& attachments) {
    if (attachments.size() > Tasks::MostDocs)
        throw Refusal(reasons::TooManyFiles);
    checkIds(attachments);
    for (const TaskAttachment& file : attachments) {
        checkField(file.name, LongestFileName);
        for (const std::string* text :
             {&file.uuid, &file.md5, &file.extension, &file.thumbnailUuid, &file.thumbnailMd5})
            checkField(*text, LongestKey);
    }
}

void checkContent(TaskContent& content) {
    if (hasControls(content.name, false))
        throw Refusal(reasons::TaskNameForbidden);
    content.name = trimmed(content.name);
    if (!showsSomething(content.name))
        throw Refusal(reasons::TaskNameEmpty);
    if (lengthOf(content.name) > LongestTaskName)
        throw Refusal(reasons::TaskNameTooLong);
    checkRemark(content.remark);
    checkDates(content);
    if (content.published && content.discloser.empty())
        throw Refusal(reasons::NoDiscloser);
    if (content.published && content.receivers.empty())
        throw Refusal(reasons::NoReceiver);
    if (content.receivers.size() > Tasks::MostReceivers)
        throw Refusal(reasons::TooManyReceivers);
    std::set<std::string> people;
    for (const TaskReceiver& receiver : content.receivers) {
        checkField(receiver.username, LongestKey);
        if (!people.insert(receiver.username).second)
            throw Refusal(reasons::ReceiverTwice);
    }
    checkLinks(content);
    if (content.docs.size() > Tasks::MostDocs)
        throw Refusal(reasons::TooManyDocs);
    std::set<std::string> documents;
    for (const TaskDoc& doc : content.docs) {
        if (doc.sourceType == TaskDoc::Filed && !documents.insert(doc.refDocId).second)
            throw Refusal(reasons::DocTwice);
        checkField(doc.name, LongestFileName);
        for (const std::string* text : {&doc.uuid, &doc.md5, &doc.extension, &doc.refDocId})
            checkField(*text, LongestKey);
    }
    checkIds(content.receivers);
    checkIds(content.viewports);
    checkIds(content.nodes);
    checkIds(content.docs);
}

void checkReminders(const PushConfig& config) {
    constexpr std::int32_t MostDays = 30;
    constexpr std::int32_t Once = 1;
    constexpr std::int32_t OnceADay = 2;
    if (config.daysAdvance < 0 || config.daysAdvance > MostDays)
        throw Refusal(reasons::BadDaysAdvance);
    for (const std::int32_t frequency : {config.advanceFrequency, config.overdueFrequency}) {
        if (frequency != Once && frequency != OnceADay)
            throw Refusal(reasons::BadFrequency);
    }
}

void checkChosen(std::size_t count) {
    constexpr std::size_t Most = 1000;
    if (count == 0)
        throw Refusal(reasons::NothingChosen);
    if (count > Most)
        throw Refusal(reasons::TooManyChosen);
}

}  // namespace disclosure
