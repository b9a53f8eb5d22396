#pragma once

/// The queries that requests run, in SQL that both SQLite and PostgreSQL know. They stand here together so that a test
/// can hold the plan of each.
namespace disclosure::queries {

// CROSS JOIN fixes the order in which SQLite takes the tables. Where one row is wanted out of many, IN is used instead
// of a join, for which SQLite may decide to read the whole table first.

/// The departments in which a person sees anything: those they belong to, and everything below.
#define DISCLOSURE_REACH                                                                       \
    "WITH RECURSIVE reach(dept_id) AS (SELECT dept_id FROM member WHERE username = :username " \
    "UNION SELECT d.dept_id FROM reach r CROSS JOIN department d WHERE d.parent_id = r.dept_id) "
#define DISCLOSURE_CATALOG \
    "SELECT c.dept_id, c.catalog_id, c.name, COALESCE(c.parent_id, ''), c.sort, c.depth FROM catalog c "
#define DISCLOSURE_BELOW                                                                                       \
    "WITH RECURSIVE below(dept_id, parent_id, dept_name, depth) AS (SELECT dept_id, parent_id, dept_name, 0 "  \
    "FROM department WHERE dept_id = :dept UNION ALL SELECT d.dept_id, d.parent_id, d.dept_name, b.depth + 1 " \
    "FROM below b CROSS JOIN department d WHERE d.parent_id = b.dept_id) "

inline constexpr auto Catalogs =
    "SELECT c.catalog_id, c.name, COALESCE(c.parent_id, ''), c.sort, c.depth, c.task_number FROM catalog c "
    "WHERE c.dept_id = :dept ORDER BY c.depth, c.parent_id, c.sort";
inline constexpr auto CatalogById = DISCLOSURE_CATALOG "WHERE c.dept_id = :dept AND c.catalog_id = :id";
inline constexpr auto CatalogsOfMember =
    DISCLOSURE_REACH DISCLOSURE_CATALOG "WHERE c.dept_id IN (SELECT dept_id FROM reach) AND c.catalog_id = :id";
inline constexpr auto ChildNamed =
    DISCLOSURE_CATALOG "WHERE c.dept_id = :dept AND c.parent_id = :parent AND c.name = :name";
inline constexpr auto TopCatalogs = "SELECT COUNT(*) FROM catalog WHERE dept_id = :dept AND parent_id IS NULL";
inline constexpr auto NeighbourBefore = DISCLOSURE_CATALOG
    "WHERE c.dept_id = :dept AND c.parent_id = :parent AND c.sort < :sort ORDER BY c.sort DESC LIMIT 1";
inline constexpr auto NeighbourAfter =
    DISCLOSURE_CATALOG "WHERE c.dept_id = :dept AND c.parent_id = :parent AND c.sort > :sort ORDER BY c.sort LIMIT 1";
inline constexpr auto CatalogCount = "SELECT COUNT(*) FROM catalog WHERE dept_id = :dept";
inline constexpr auto NextSort =
    "SELECT COALESCE(MAX(sort) + 1, 0) FROM catalog WHERE dept_id = :dept AND parent_id = :parent";
inline constexpr auto SubtreeTasks =
    "WITH RECURSIVE subtree(catalog_id) AS (SELECT CAST(:id AS VARCHAR(64)) UNION ALL SELECT c.catalog_id "
    "FROM subtree s CROSS JOIN catalog c WHERE c.dept_id = :dept AND c.parent_id = s.catalog_id) "
    "SELECT COUNT(*) FROM (SELECT 1 FROM task t WHERE t.dept_id = :dept "
    "AND t.catalog_id IN (SELECT catalog_id FROM subtree) LIMIT 1) found";

/// Whether it is the top one, its own tasks, those of its subtree, and those of the department.
inline constexpr auto SubtreeNumbers =
    "SELECT CASE WHEN c.parent_id IS NULL THEN 1 ELSE 0 END, c.task_number, c.subtree_number, (SELECT o.subtree_number "
    "FROM catalog o WHERE o.dept_id = :dept AND o.parent_id IS NULL) FROM catalog c "
    "WHERE c.dept_id = :dept AND c.catalog_id = :id";
inline constexpr auto DepartmentTasks =
    "SELECT c.subtree_number FROM catalog c WHERE c.dept_id = :dept AND c.parent_id IS NULL";
#define DISCLOSURE_SUBTREE                                                                                  \
    "WITH RECURSIVE subtree(catalog_id) AS (SELECT CAST(:id AS VARCHAR(64)) UNION ALL SELECT c.catalog_id " \
    "FROM subtree s CROSS JOIN catalog c WHERE c.dept_id = :dept AND c.parent_id = s.catalog_id) "
inline constexpr auto RemoveSubtreeTasks =
    DISCLOSURE_SUBTREE "DELETE FROM task WHERE dept_id = :dept AND catalog_id IN (SELECT catalog_id FROM subtree)";
inline constexpr auto LogSubtreeTasks = DISCLOSURE_SUBTREE
    "INSERT INTO task_log (dept_id, task_id, log_id, username, op_time, kind, source_name) "
    "SELECT t.dept_id, t.task_id, :log || '-' || t.rid, :username, :time, :kind, t.name FROM task t "
    "WHERE t.dept_id = :dept AND t.catalog_id IN (SELECT catalog_id FROM subtree)";
inline constexpr auto TaskRid = "SELECT rid FROM task t WHERE t.dept_id = :dept AND t.task_id = :id";
/// The numbers of the tasks follow, with a bracket.
inline constexpr auto TaskRows =
    "SELECT t.rid, t.task_id, t.catalog_id, t.name, t.discloser, t.construction_start, t.construction_end, "
    "t.plan_disclosure, t.actual_disclosure, t.expiry, t.published, t.remark, t.updated_by, t.updated_at, "
    "t.confirmed_at, t.confirm_remark, t.urged_at, COALESCE(d.dept_name, ''), COALESCE(p.realname, ''), "
    "COALESCE(p.head_uuid, ''), COALESCE(u.realname, t.updated_by) FROM task t "
    "LEFT JOIN department d ON d.dept_id = t.dept_id LEFT JOIN person p ON p.username = t.discloser "
    "LEFT JOIN person u ON u.username = t.updated_by WHERE +t.dept_id = :dept AND t.rid IN (";
inline constexpr auto TasksOfPerson = DISCLOSURE_REACH
    "SELECT t.rid, t.dept_id, t.task_id FROM task t WHERE t.task_id = :id AND (t.dept_id IN (SELECT dept_id FROM "
    "reach) "
    "OR t.discloser = :username OR (t.published = 1 AND EXISTS (SELECT 1 FROM task_receiver r "
    "WHERE r.dept_id = t.dept_id AND r.task_rid = t.rid AND r.username = :username)))";
inline constexpr auto MemberOf =
    "SELECT COUNT(*) FROM member m CROSS JOIN person p WHERE m.dept_id = :dept AND m.username = :username "
    "AND p.username = m.username AND p.active = 1";
inline constexpr auto SameOrganisation =
    "WITH RECURSIVE up(dept_id, parent_id, side) AS (SELECT d.dept_id, d.parent_id, 0 FROM department d "
    "WHERE d.dept_id = :dept UNION SELECT d.dept_id, d.parent_id, 1 FROM person p CROSS JOIN member m "
    "CROSS JOIN department d WHERE p.username = :username AND p.active = 1 AND m.username = p.username "
    "AND d.dept_id = m.dept_id UNION SELECT d.dept_id, d.parent_id, u.side FROM up u CROSS JOIN department d WHERE "
    "d.dept_id = u.parent_id) SELECT COUNT(*) FROM up a CROSS JOIN up b "
    "WHERE a.side = 0 AND b.side = 1 AND a.parent_id IS NULL AND b.dept_id = a.dept_id";
inline constexpr auto LogOfTask =
    "SELECT l.log_id, l.username, l.op_time, l.kind, l.source_id, l.source_name, l.source_uuid, l.source_md5, "
    "l.source_size, l.source_extension, COALESCE(p.realname, ''), COALESCE(p.head_uuid, '') FROM task_log l "
    "LEFT JOIN person p ON p.username = l.username WHERE l.dept_id = :dept AND l.task_id = :id ORDER BY l.rid";
#define DISCLOSURE_PUSH                                                                                              \
    "SELECT config_id, dept_id, notify_advance, days_advance, advance_frequency, notify_overdue, overdue_frequency " \
    "FROM push_config "
inline constexpr auto RemindingConfigs =
    DISCLOSURE_PUSH "WHERE notify_advance = 1 OR notify_overdue = 1 ORDER BY dept_id";
inline constexpr auto PushConfigOfDept = DISCLOSURE_PUSH "WHERE dept_id = :dept";
inline constexpr auto PushConfigsOfMember =
    DISCLOSURE_REACH DISCLOSURE_PUSH "WHERE config_id = :id AND dept_id IN (SELECT dept_id FROM reach)";
inline constexpr auto DepartmentsOf = DISCLOSURE_REACH
    "SELECT d.dept_id, d.dept_name, COALESCE(d.parent_id, '') FROM department d "
    "WHERE d.dept_id IN (SELECT dept_id FROM reach) ORDER BY d.dept_id";
inline constexpr auto ColleaguesOf = DISCLOSURE_REACH
    "SELECT p.username, p.realname, p.head_uuid, p.dept_id FROM person p WHERE p.username IN "
    "(SELECT m.username FROM reach r CROSS JOIN member m WHERE m.dept_id = r.dept_id) ORDER BY p.username";

#define DISCLOSURE_FILE "SELECT f.name, f.extension, f.md5, f.size, f.uploaded_by, f.stored_at FROM stored_file f "
#define DISCLOSURE_SHOWS(list, column)                                                                        \
    "EXISTS (SELECT 1 FROM " list " l CROSS JOIN task t WHERE l.dept_id = f.dept_id AND l." column            \
    " = f.uuid AND t.rid = l.task_rid AND (t.discloser = :username OR (t.published = 1 AND EXISTS (SELECT 1 " \
    "FROM task_receiver r WHERE r.dept_id = t.dept_id AND r.task_rid = t.rid AND r.username = :username))))"
#define DISCLOSURE_REFERS(list, column) \
    "(SELECT COUNT(*) FROM " list " l WHERE l.dept_id = :dept AND l." column " = :uuid)"
inline constexpr auto FileByUuid = DISCLOSURE_FILE "WHERE f.dept_id = :dept AND f.uuid = :uuid";
inline constexpr auto FileOfPerson = DISCLOSURE_REACH DISCLOSURE_FILE
    "WHERE f.dept_id = :dept AND f.uuid = :uuid AND (f.dept_id IN (SELECT dept_id FROM reach) "
    "OR f.uploaded_by = :username OR " DISCLOSURE_SHOWS("task_doc", "uuid") " OR " DISCLOSURE_SHOWS(
        "task_attachment", "uuid") " OR " DISCLOSURE_SHOWS("task_attachment", "thumbnail_uuid") ")";
inline constexpr auto KnownFile = "SELECT COUNT(*) FROM stored_file f WHERE f.uuid = :uuid";
inline constexpr auto KnownFiles =
    "SELECT f.uuid FROM stored_file f WHERE f.uuid >= :first AND f.uuid <= :last ORDER BY f.uuid";
inline constexpr auto BytesUsed = "SELECT f.bytes FROM file_usage f WHERE f.dept_id = :dept";
inline constexpr auto UploadsBefore = "SELECT k.dept_id, k.uuid FROM file_upload k WHERE k.begun_at < :before";
inline constexpr auto References = "SELECT " DISCLOSURE_REFERS("task_doc", "uuid") " + " DISCLOSURE_REFERS(
    "task_attachment", "uuid") " + " DISCLOSURE_REFERS("task_attachment", "thumbnail_uuid");
inline constexpr auto LooseFiles =
    "SELECT f.dept_id, f.uuid, f.loose_since FROM stored_file f WHERE f.loose_since > 0 AND f.loose_since <= :before "
    "ORDER BY f.loose_since LIMIT :most";
/// In the order of the planned date, and of the deadline.
inline constexpr auto UndisclosedByPlan =
    "SELECT t.plan_disclosure, t.rid FROM task t INDEXED BY task_plan WHERE t.dept_id = :dept AND (t.plan_disclosure, "
    "t.rid) > (:time, :rid) AND t.plan_disclosure <= :until AND t.state <> 2 ORDER BY t.plan_disclosure, t.rid "
    "LIMIT :most";
inline constexpr auto UndisclosedByDeadline =
    "SELECT t.deadline, t.rid FROM task t INDEXED BY task_overdue WHERE t.dept_id = :dept AND (t.deadline, t.rid) > "
    "(:time, :rid) AND t.deadline <= :until AND t.state <> 2 ORDER BY t.deadline, t.rid LIMIT :most";
inline constexpr auto ReminderRunOf =
    "SELECT day, place_time, place_rid FROM reminder_run WHERE dept_id = :dept AND kind = :kind";
inline constexpr auto ChangedTasks =
    "SELECT task_rid FROM reminder_changed WHERE dept_id = :dept ORDER BY task_rid LIMIT :most";
inline constexpr auto RemindedPeople =
    "SELECT username FROM reminder WHERE dept_id = :dept AND task_id = :id AND kind = :kind AND due = :due";
inline constexpr auto OldReminders =
    "SELECT dept_id, task_id, kind, due, username, CASE WHEN due LIKE 'once %' AND EXISTS (SELECT 1 FROM task t "
    "WHERE t.dept_id = reminder.dept_id AND t.task_id = reminder.task_id AND t.state <> 2) THEN 1 ELSE 0 END "
    "FROM reminder WHERE made_at < :before ORDER BY made_at LIMIT :most";
#define DISCLOSURE_THIS_REMINDER \
    " WHERE dept_id = :dept AND task_id = :id AND kind = :kind AND due = :due AND username = :username"
inline constexpr auto KeepReminder = "UPDATE reminder SET made_at = :now" DISCLOSURE_THIS_REMINDER;
inline constexpr auto DropReminder = "DELETE FROM reminder" DISCLOSURE_THIS_REMINDER;
/// The task is that of now, where the person may still see it.
inline constexpr auto MessagesOf = DISCLOSURE_REACH
    "SELECT message.rid, message.dept_id, message.kind, message.text, message.created_at, message.is_read, "
    "COALESCE(t.task_id, ''), COALESCE(t.name, ''), COALESCE(t.catalog_id, '') FROM message LEFT JOIN task t "
    "ON t.dept_id = message.dept_id AND t.task_id = message.task_id AND (message.dept_id IN (SELECT dept_id FROM "
    "reach) "
    "OR t.discloser = :username OR (t.published = 1 AND EXISTS (SELECT 1 FROM task_receiver r "
    "WHERE r.dept_id = t.dept_id AND r.task_rid = t.rid AND r.username = :username))) "
    "WHERE message.username = :username ORDER BY message.created_at DESC, message.rid DESC LIMIT :limit OFFSET :offset";
inline constexpr auto MessageCount = "SELECT COUNT(*) FROM message WHERE username = :username";
inline constexpr auto UnreadCount = "SELECT COUNT(*) FROM message WHERE username = :username AND is_read = 0";
inline constexpr auto OldMessages =
    "SELECT rid FROM message WHERE created_at < :before ORDER BY created_at LIMIT :most";
#define DISCLOSURE_MAIL                                                                                                \
    "SELECT dept_id, mail_id, task_id, kind, due, username, subject, text, created_at, attempts, claimed_at, wake_at " \
    "FROM mail "
inline constexpr auto DueMails = DISCLOSURE_MAIL "WHERE wake_at <= :now ORDER BY wake_at LIMIT :most";
inline constexpr auto MailsFromTheFuture = DISCLOSURE_MAIL "WHERE claimed_at > :future ORDER BY claimed_at LIMIT :most";

inline constexpr auto PersonByName =
    "SELECT realname, head_uuid, dept_id, password_hash, mail, active FROM person WHERE username = :username";
inline constexpr auto SessionByHash = "SELECT username, created_at, seen_at FROM web_session WHERE hash = :hash";
inline constexpr auto AttemptsOf =
    "SELECT since, attempts FROM login_attempt WHERE username = :username AND address = :address";

inline constexpr auto DepartmentById =
    "SELECT dept_name, COALESCE(parent_id, '') FROM department WHERE dept_id = :dept";
inline constexpr auto DepartmentsFrom =
    DISCLOSURE_BELOW "SELECT dept_id, dept_name, COALESCE(parent_id, '') FROM below ORDER BY depth, dept_id";
inline constexpr auto PeopleFrom = DISCLOSURE_BELOW
    "SELECT p.username, p.realname, p.head_uuid, COALESCE(MAX(CASE WHEN m.dept_id = p.dept_id THEN p.dept_id END), "
    "MIN(m.dept_id)) FROM below b CROSS JOIN member m CROSS JOIN person p WHERE m.dept_id = b.dept_id "
    "AND p.username = m.username AND p.active = 1 GROUP BY p.username, p.realname, p.head_uuid ORDER BY p.username";
inline constexpr auto ProjectsOf = DISCLOSURE_REACH
    "SELECT p.ppid, p.name, p.dept_id FROM project p WHERE p.dept_id IN (SELECT dept_id FROM reach) ORDER BY p.ppid";
inline constexpr auto RightsOf =
    "WITH RECURSIVE above(dept_id, parent_id) AS (SELECT dept_id, parent_id FROM department WHERE dept_id = :dept "
    "UNION SELECT d.dept_id, d.parent_id FROM above a CROSS JOIN department d WHERE d.dept_id = a.parent_id) "
    "SELECT COALESCE(g.right_key, '') FROM above a CROSS JOIN member m LEFT JOIN granted g "
    "ON g.dept_id = m.dept_id AND g.username = m.username WHERE m.dept_id = a.dept_id AND m.username = :username";

/// Those that must find their rows by a key, however large the tables are.
inline constexpr const char* Keyed[] = {
    Catalogs,
    CatalogById,
    CatalogsOfMember,
    ChildNamed,
    TopCatalogs,
    NeighbourBefore,
    NeighbourAfter,
    CatalogCount,
    NextSort,
    SubtreeTasks,
    PersonByName,
    SessionByHash,
    AttemptsOf,
    DepartmentById,
    DepartmentsFrom,
    PeopleFrom,
    ProjectsOf,
    RightsOf,
    SubtreeNumbers,
    DepartmentTasks,
    RemoveSubtreeTasks,
    LogSubtreeTasks,
    TaskRid,
    TasksOfPerson,
    MemberOf,
    SameOrganisation,
    LogOfTask,
    PushConfigOfDept,
    PushConfigsOfMember,
    DepartmentsOf,
    ColleaguesOf,
    UndisclosedByPlan,
    UndisclosedByDeadline,
    ReminderRunOf,
    ChangedTasks,
    RemindedPeople,
    OldReminders,
    MessagesOf,
    MessageCount,
    UnreadCount,
    OldMessages,
    DueMails,
    MailsFromTheFuture,
    FileByUuid,
    FileOfPerson,
    KnownFile,
    KnownFiles,
    BytesUsed,
    UploadsBefore,
    References,
    LooseFiles,
};

#undef DISCLOSURE_REACH
#undef DISCLOSURE_CATALOG
#undef DISCLOSURE_BELOW
#undef DISCLOSURE_SUBTREE
#undef DISCLOSURE_PUSH
#undef DISCLOSURE_FILE
#undef DISCLOSURE_SHOWS
#undef DISCLOSURE_REFERS
#undef DISCLOSURE_MAIL
#undef DISCLOSURE_THIS_REMINDER

}  // namespace disclosure::queries
