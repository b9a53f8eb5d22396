#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <soci/soci.h>
#include <string>

#include "service/ports/IStore.h"
#include "service/store/Statements.h"
#include "service/store/TaskPlan.h"

namespace disclosure {

/// The store on one SQL connection. What the engines do differently is given to the constructor.
class SqlStore final : public IStore {
public:
    /// `beginWrite` is the statement that begins a writing transaction. `writers` lets the writers of this process
    /// queue in order instead of polling the database's lock; it must outlive the store. `afterCommit` follows a
    /// writing transaction, when the next may begin.
    SqlStore(std::unique_ptr<soci::session> sql, std::string beginWrite, std::timed_mutex& writers,
             std::function<void()> afterCommit);
    ~SqlStore() override;

    void begin(Access access) override;
    void commit() override;
    void rollback() noexcept override;
    bool isCurrent() override;

    std::optional<Person> person(const std::string& username) override;
    std::vector<Person> people() override;
    void putPerson(const Person& person) override;
    std::optional<Session> session(const std::string& hash) override;
    void addSession(const Session& session) override;
    void touchSession(const std::string& hash, std::int64_t seenAt) override;
    void removeSession(const std::string& hash) override;
    void removeSessionsOf(const std::string& username) override;
    void removeSessionsSeenBefore(std::int64_t time) override;
    LoginAttempts loginAttempts(const std::string& username, const std::string& address) override;
    void putLoginAttempts(const std::string& username, const std::string& address,
                          const LoginAttempts& attempts) override;
    void removeLoginAttempts(const std::string& username, const std::string& address) override;
    void removeLoginAttemptsBefore(std::int64_t time) override;

    std::optional<Department> department(const std::string& deptId) override;
    bool hasDepartments() override;
    std::vector<Department> departmentsFrom(const std::string& deptId) override;
    std::vector<Person> peopleFrom(const std::string& deptId) override;
    std::vector<Project> projectsOf(const std::string& username) override;
    std::optional<Rights> rightsOf(const std::string& username, const std::string& deptId) override;
    void putDepartment(const Department& department) override;
    void putProject(const Project& project) override;
    void putMember(const std::string& deptId, const std::string& username) override;
    bool removeMember(const std::string& deptId, const std::string& username) override;
    void putRights(const std::string& deptId, const std::string& username, const Rights& rights) override;

    std::vector<Catalog> catalogs(const std::string& deptId) override;
    std::optional<Catalog> catalog(const std::string& deptId, const std::string& id) override;
    std::vector<Catalog> catalogsOfMember(const std::string& username, const std::string& id) override;
    std::optional<Catalog> childNamed(const std::string& deptId, const std::string& parentId,
                                      const std::string& name) override;
    bool hasTopCatalog(const std::string& deptId) override;
    std::optional<Catalog> neighbour(const Catalog& catalog, Side side) override;
    std::int64_t catalogCount(const std::string& deptId) override;
    std::int32_t nextSort(const std::string& deptId, const std::string& parentId) override;
    bool subtreeHoldsTasks(const std::string& deptId, const std::string& id) override;
    void addCatalog(const Catalog& catalog) override;
    void renameCatalog(const std::string& deptId, const std::string& id, const std::string& name) override;
    void placeCatalog(const std::string& deptId, const std::string& id, std::int32_t sort) override;
    bool isGoing(const std::string& deptId, const std::string& id) override;
    void removeCatalog(const Catalog& catalog, const LogEntry& entry) override;
    bool isAnyGoing() override;
    void clearRemoved(std::int64_t most) override;

    TaskPage pageTasks(const TaskFilter& filter) override;
    OwnTaskPage pageOwnTasks(const OwnTaskFilter& filter) override;
    std::optional<Task> task(const std::string& deptId, const std::string& id) override;
    std::vector<TaskKey> tasksOfPerson(const std::string& username, const std::string& id) override;
    std::vector<std::string> strangers(const std::vector<std::string>& usernames, const std::string& deptId) override;
    void addTask(const Task& task) override;
    void addTasks(const std::vector<Task>& tasks) override;
    void countTasks(const std::string& deptId) override;
    void putTask(const Task& task, const Task& before) override;
    void removeTasks(const std::vector<TaskKey>& keys, const LogEntry& entry) override;
    void addLog(const LogEntry& entry) override;
    std::vector<LogEntry> logOf(const LogFilter& filter) override;
    std::optional<LogEntry> logEntry(const std::string& deptId, const std::string& taskId,
                                     const std::string& id) override;
    std::int64_t clientEntries(const std::string& deptId, const std::string& taskId, std::int64_t most) override;
    std::optional<PushConfig> pushConfig(const std::string& deptId) override;
    std::vector<PushConfig> pushConfigsOfMember(const std::string& username, const std::string& id) override;
    void putPushConfig(const PushConfig& config) override;
    std::vector<Department> departmentsOf(const std::string& username) override;
    std::vector<Person> colleaguesOf(const std::string& username) override;

    std::optional<StoredFile> file(const FileKey& key) override;
    std::optional<StoredFile> fileOfPerson(const std::string& username, const FileKey& key) override;
    bool knowsFile(const std::string& uuid) override;
    std::vector<std::string> knownFiles(const std::string& first, const std::string& last) override;
    bool holdsFiles() override;
    std::string folderId() override;
    std::int64_t bytesOf(const std::string& deptId) override;
    void addFile(const StoredFile& file) override;
    void removeFile(const FileKey& key) override;
    void addUpload(const PendingFile& file) override;
    void removeUpload(const FileKey& key) override;
    std::vector<FileKey> uploadsBegunBefore(std::int64_t time) override;
    bool isReferredTo(const FileKey& key) override;
    std::vector<LooseFile> looseFiles(std::int64_t time, std::size_t most) override;
    void setLoose(const FileKey& key, std::int64_t since) override;

    std::vector<DocumentFolder> folders(const std::string& deptId) override;
    std::optional<DocumentFolder> folder(const std::string& deptId, const std::string& id) override;
    bool hasFolderNamed(const std::string& deptId, const std::string& parentId, const std::string& name) override;
    std::int64_t folderCount(const std::string& deptId) override;
    bool isFolderUsed(const std::string& deptId, const std::string& id) override;
    bool isFolderWithin(const std::string& deptId, const std::string& id, const std::string& other) override;
    std::int32_t levelsBelow(const std::string& deptId, const std::string& id) override;
    void addFolder(const DocumentFolder& folder) override;
    void putFolder(const DocumentFolder& folder) override;
    void removeFolder(const std::string& deptId, const std::string& id) override;
    DocumentPage pageDocuments(const DocumentFilter& filter) override;
    std::vector<Document> documents(const std::string& deptId, const std::vector<std::string>& ids) override;
    std::vector<DocumentContent> contentsOf(const Document& document) override;
    std::vector<Person> updatersIn(const std::string& deptId, const std::string& folderId) override;
    std::vector<DocumentTag> tags(const std::string& deptId) override;
    std::optional<DocumentTag> tagNamed(const std::string& deptId, const std::string& name) override;
    std::int64_t tagCount(const std::string& deptId) override;
    void addTag(const std::string& deptId, const DocumentTag& tag) override;
    std::int64_t addDocument(const Document& document) override;
    void putDocument(const Document& document, const Document& before) override;
    DocumentLinks linksTo(const std::string& deptId, const std::vector<std::string>& ids) override;
    std::vector<Document> looseDocuments(std::int64_t time, std::size_t most) override;
    void holdDocument(const Document& document) override;
    void removeDocument(const Document& document) override;

    std::vector<PushConfig> remindingConfigs() override;
    std::optional<ReminderRun> reminderRun(const std::string& deptId, ReminderKind kind) override;
    void putReminderRun(const ReminderRun& run) override;
    std::vector<ReminderPlace> undisclosedTasks(const std::string& deptId, ReminderKind kind,
                                                const ReminderPlace& after, std::int64_t until,
                                                std::int64_t most) override;
    std::vector<std::int64_t> changedTasks(const std::string& deptId, std::int64_t most) override;
    void forgetChangedTask(const std::string& deptId, std::int64_t rid) override;
    std::vector<Task> tasksOf(const std::string& deptId, const std::vector<std::int64_t>& rids) override;
    std::set<std::string> remindedPeople(const std::string& deptId, const std::string& taskId, ReminderKind kind,
                                         const std::string& due) override;
    void addReminder(const Reminder& reminder) override;
    bool isAnyReminderBefore(std::int64_t time) override;
    void forgetReminders(std::int64_t time, std::int64_t now, std::int64_t most) override;
    void addMessage(const Message& message) override;
    MessagePage pageMessages(const std::string& username, std::int64_t offset, std::int64_t limit) override;
    std::int64_t unreadMessages(const std::string& username) override;
    void markMessageRead(const std::string& username, std::int64_t rid) override;
    void markMessagesRead(const std::string& username) override;
    void removeMessagesBefore(std::int64_t time, std::int64_t most) override;
    void addMail(const Mail& mail) override;
    std::vector<Mail> dueMails(std::int64_t now, std::int64_t slack, std::int64_t most) override;
    bool putMail(const Mail& mail, std::int64_t claimedAt) override;
    void removeMail(const Mail& mail) override;

private:
    /// The tasks of these numbers with their lists, in this order.
    std::vector<Task> readTasks(const std::string& deptId, const std::vector<std::int64_t>& rids);
    /// Runs a statement that names every column of a task.
    void writeTask(const char* statement, const Task& task);
    /// Writes what differs between the task's lists and those before, for the task of this number.
    void writeLists(const Task& task, const Task& before, std::int64_t rid);
    template <class Element, class Same, class Bind>
    void writeList(const Task& task, std::int64_t rid, const char* remove, const char* add,
                   const std::vector<Element>& list, const std::vector<Element>& before, Same&& same, Bind&& bind);
    /// Clears away some tasks of the removal; else some of its catalogs; else the removal itself.
    void clear(std::int64_t removal, std::int64_t most);
    /// Removes the tasks with these numbers, all of the entry's department, and notes it for each.
    void clearTasks(const std::vector<std::int64_t>& rids, const LogEntry& entry);
    /// Clears away one task that has gone with its catalog, before its turn.
    void clearNow(const std::string& deptId, std::int64_t rid);
    template <class... Used>
    std::vector<LogEntry> readLog(const char* query, const std::string& deptId, const std::string& taskId,
                                  Used&&... used);
    /// How many tasks of the whole department have the filter's status.
    std::int64_t countOfStatus(const TaskFilter& filter);
    std::int64_t countOfOwn(const OwnTaskFilter& filter);
    template <class... Used>
    std::vector<DocumentFolder> readFolders(const char* query, Used&&... used);
    /// The documents that a statement gives, in its order, without their tags.
    std::vector<Document> readDocuments(std::string_view text, const std::function<void(soci::statement&)>& bind);
    void addTags(const std::string& deptId, std::vector<Document>& documents);
    /// Runs a statement that names every column of a document.
    void writeDocument(const char* statement, const Document& document);
    void addContent(const Document& document, std::int64_t rid);
    void writeTags(const Document& document, std::int64_t rid, const std::vector<DocumentTag>& before);
    /// How many documents there are that the filter's folder, types, updater and lack of a tag let in.
    std::int64_t documentsLike(const DocumentFilter& filter);
    template <class... Used>
    std::vector<PushConfig> readPushConfigs(const char* query, Used&&... used);
    std::vector<Mail> readMails(const char* query, std::int64_t time, const char* name, std::int64_t most);
    /// May narrow the filter to the department's top catalog.
    std::optional<TaskScope> scopeOf(TaskFilter& filter);
    TaskPlan::Path bestPath(const TaskPlan& plan, const TaskScope& scope);
    /// Runs a statement made for one filter; returns its only column.
    std::vector<std::int64_t> readNumbers(const BoundSql& sql);
    template <class... Used>
    std::vector<Catalog> readCatalogs(const char* query, Used&&... used);
    template <class... Used>
    std::optional<StoredFile> readFile(const char* query, const FileKey& key, Used&&... used);
    /// The one number that a query gives.
    template <class... Used>
    std::int64_t readNumber(const char* query, Used&&... used) {
        std::int64_t number = 0;
        m_statements.one(query, soci::into(number), std::forward<Used>(used)...);
        return number;
    }

    std::unique_ptr<soci::session> m_sql;
    Statements m_statements;
    std::string m_beginWrite;
    std::function<void()> m_afterCommit;
    std::unique_lock<std::timed_mutex> m_writing;
};

}  // namespace disclosure
