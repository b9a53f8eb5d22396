#pragma once

/// The queries that requests run. They stand here together so that a test can hold the plan of each.
///
/// Their SQL is what both SQLite and PostgreSQL know, but for what tells SQLite how to go about it, which PostgreSQL
/// decides by itself: INDEXED BY and the unary + are left out for it, and CROSS JOIN, which fixes the order of the
/// tables in SQLite, takes its conditions from WHERE in both. SQLite's alone are json_each, by which a list is given,
/// the index of names with its MATCH, the triggers, and the partial indexes' way of being chosen.
namespace disclosure::queries {

// Where one row is wanted out of many, IN is used instead of a join, for which SQLite may decide to read the whole
// table first.

/// The departments in which a person sees anything: those they belong to, and everything below. Only for what lists
/// all of it; whether one row is among it is told by the way up from its department.
#define DISCLOSURE_REACH                                                                       \
    "WITH RECURSIVE reach(dept_id) AS (SELECT dept_id FROM member WHERE username = :username " \
    "UNION SELECT d.dept_id FROM reach r CROSS JOIN department d WHERE d.parent_id = r.dept_id) "
#define DISCLOSURE_SEES(row)                                                                                   \
    "EXISTS (WITH RECURSIVE up(dept_id, parent_id) AS (SELECT d.dept_id, d.parent_id FROM department d WHERE " \
    "d.dept_id = " row                                                                                         \
    ".dept_id UNION SELECT d.dept_id, d.parent_id FROM up CROSS JOIN department d "                            \
    "WHERE d.dept_id = up.parent_id) SELECT 1 FROM up CROSS JOIN member m WHERE m.dept_id = up.dept_id "       \
    "AND m.username = :username)"
/// The published task is shown to the person, to receive it.
#define DISCLOSURE_RECEIVES \
    "EXISTS (SELECT 1 FROM task_receiver r WHERE r.username = :username AND r.shown = 1 AND r.task_rid = t.rid)"
/// The task has not gone with its catalog, and only waits for being cleared away.
#define DISCLOSURE_IS_THERE                                                                                            \
    "NOT EXISTS (SELECT 1 FROM catalog x WHERE x.dept_id = t.dept_id AND x.catalog_id = t.catalog_id AND x.removal > " \
    "0)"
inline constexpr auto AndIsThere = " AND " DISCLOSURE_IS_THERE;
#define DISCLOSURE_CATALOG \
    "SELECT c.dept_id, c.catalog_id, c.name, COALESCE(c.parent_id, ''), c.sort, c.depth FROM catalog c "
#define DISCLOSURE_BELOW                                                                                       \
    "WITH RECURSIVE below(dept_id, parent_id, dept_name, depth) AS (SELECT dept_id, parent_id, dept_name, 0 "  \
    "FROM department WHERE dept_id = :dept UNION ALL SELECT d.dept_id, d.parent_id, d.dept_name, b.depth + 1 " \
    "FROM below b CROSS JOIN department d WHERE d.parent_id = b.dept_id) "

inline constexpr auto Catalogs =
    "SELECT c.catalog_id, c.name, COALESCE(c.parent_id, ''), c.sort, c.depth, c.task_number FROM catalog c "
    "WHERE c.dept_id = :dept AND c.removal = 0 ORDER BY c.depth, c.parent_id, c.sort";
inline constexpr auto CatalogById =
    DISCLOSURE_CATALOG "WHERE c.dept_id = :dept AND c.catalog_id = :id AND c.removal = 0";
inline constexpr auto CatalogsOfMember =
    DISCLOSURE_CATALOG "WHERE c.catalog_id = :id AND c.removal = 0 AND " DISCLOSURE_SEES("c");
inline constexpr auto ChildNamed =
    DISCLOSURE_CATALOG "WHERE c.dept_id = :dept AND c.parent_id = :parent AND c.name = :name";
inline constexpr auto TopCatalogs =
    "SELECT COUNT(*) FROM catalog WHERE dept_id = :dept AND parent_id IS NULL AND removal = 0";
inline constexpr auto NeighbourBefore = DISCLOSURE_CATALOG
    "WHERE c.dept_id = :dept AND c.parent_id = :parent AND c.sort < :sort ORDER BY c.sort DESC LIMIT 1";
inline constexpr auto NeighbourAfter =
    DISCLOSURE_CATALOG "WHERE c.dept_id = :dept AND c.parent_id = :parent AND c.sort > :sort ORDER BY c.sort LIMIT 1";
/// Those that are going are among them.
inline constexpr auto CatalogCount = "SELECT COUNT(*) FROM catalog WHERE dept_id = :dept";
inline constexpr auto NextSort =
    "SELECT COALESCE(MAX(sort) + 1, 0) FROM catalog WHERE dept_id = :dept AND parent_id = :parent";
inline constexpr auto SubtreeTasks =
    "SELECT c.subtree_number FROM catalog c WHERE c.dept_id = :dept AND c.catalog_id = :id";
inline constexpr auto CatalogIsGoing =
    "SELECT COUNT(*) FROM catalog c WHERE c.dept_id = :dept AND c.catalog_id = :id AND c.removal > 0";

/// Whether it is the top one, its own tasks, those of its subtree, and those of the department.
inline constexpr auto SubtreeNumbers =
    "SELECT CASE WHEN c.parent_id IS NULL THEN 1 ELSE 0 END, c.task_number, c.subtree_number, (SELECT o.subtree_number "
    "FROM catalog o WHERE o.dept_id = :dept AND o.parent_id IS NULL AND o.removal = 0) FROM catalog c "
    "WHERE c.dept_id = :dept AND c.catalog_id = :id AND c.removal = 0";
inline constexpr auto DepartmentTasks =
    "SELECT c.catalog_id, c.subtree_number FROM catalog c WHERE c.dept_id = :dept AND c.parent_id IS NULL AND "
    "c.removal = 0";
/// How many of the department's tasks wait for being cleared away.
inline constexpr auto TasksGoing = "SELECT COALESCE(SUM(v.tasks), 0) FROM removal v WHERE v.dept_id = :dept";
inline constexpr auto AnyTasksGoing = "SELECT COUNT(*) FROM (SELECT 1 FROM removal v WHERE v.tasks > 0 LIMIT 1) going";
#define DISCLOSURE_SUBTREE                                                                                  \
    "WITH RECURSIVE subtree(catalog_id) AS (SELECT CAST(:id AS VARCHAR(64)) UNION ALL SELECT c.catalog_id " \
    "FROM subtree s CROSS JOIN catalog c WHERE c.dept_id = :dept AND c.parent_id = s.catalog_id) "
inline constexpr auto MarkSubtree = DISCLOSURE_SUBTREE
    "UPDATE catalog SET removal = :removal WHERE dept_id = :dept AND catalog_id IN (SELECT catalog_id FROM subtree)";
inline constexpr auto UncountSubtree =
    "WITH RECURSIVE up(id) AS (SELECT c.parent_id FROM catalog c WHERE c.dept_id = :dept AND c.catalog_id = :id "
    "UNION ALL SELECT c.parent_id FROM up CROSS JOIN catalog c WHERE c.dept_id = :dept AND c.catalog_id = up.id) "
    "UPDATE catalog SET subtree_number = subtree_number - :tasks WHERE dept_id = :dept AND catalog_id IN "
    "(SELECT id FROM up WHERE id IS NOT NULL)";
inline constexpr auto TasksToClear =
    "SELECT t.rid FROM catalog c INDEXED BY catalog_uncleared CROSS JOIN task t WHERE c.removal = :removal AND "
    "c.removal > 0 AND c.task_number > 0 AND t.dept_id = c.dept_id AND t.catalog_id = c.catalog_id LIMIT :most";
inline constexpr auto RemovalOfTask =
    "SELECT v.rid, v.log_id, v.username, v.removed_at FROM task t CROSS JOIN catalog c CROSS JOIN removal v WHERE "
    "+t.dept_id = :dept AND t.rid = :rid AND c.dept_id = t.dept_id AND c.catalog_id = t.catalog_id AND v.rid = "
    "c.removal";
/// The deepest first, so that none takes others with it.
inline constexpr auto ClearCatalogs =
    "DELETE FROM catalog WHERE rowid IN (SELECT c.rowid FROM catalog c INDEXED BY catalog_removed WHERE c.removal = "
    ":removal AND c.removal > 0 ORDER BY c.depth DESC LIMIT :most)";
inline constexpr auto TaskRid =
    "SELECT rid FROM task t WHERE t.dept_id = :dept AND t.task_id = :id AND " DISCLOSURE_IS_THERE;
inline constexpr auto StoredTaskRid = "SELECT rid FROM task t WHERE t.dept_id = :dept AND t.task_id = :id";
/// The numbers of the tasks follow, with a bracket.
inline constexpr auto TaskRows =
    "SELECT t.rid, t.task_id, t.catalog_id, t.name, t.discloser, t.construction_start, t.construction_end, "
    "t.plan_disclosure, t.actual_disclosure, t.expiry, t.published, t.remark, t.updated_by, t.updated_at, "
    "t.confirmed_at, t.confirm_remark, t.urged_at, COALESCE(d.dept_name, ''), COALESCE(p.realname, ''), "
    "COALESCE(p.head_uuid, ''), COALESCE(u.realname, t.updated_by) FROM task t "
    "LEFT JOIN department d ON d.dept_id = t.dept_id LEFT JOIN person p ON p.username = t.discloser "
    "LEFT JOIN person u ON u.username = t.updated_by WHERE " DISCLOSURE_IS_THERE
    " AND +t.dept_id = :dept AND t.rid IN (";
inline constexpr auto TasksOfPerson =
    "SELECT t.rid, t.dept_id, t.task_id FROM task t WHERE t.task_id = :id AND (t.discloser = :username "
    "OR " DISCLOSURE_SEES("t") " OR " DISCLOSURE_RECEIVES ") AND " DISCLOSURE_IS_THERE;
/// Which of the people given as a list in JSON do not belong to the department's organisation. Most are members of the
/// department itself, and that is told without going up and down the tree.
inline constexpr auto Strangers =
    "SELECT j.value FROM json_each(:people) j WHERE NOT EXISTS (SELECT 1 FROM person p CROSS JOIN member m "
    "WHERE p.username = j.value AND p.active = 1 AND m.dept_id = :dept AND m.username = j.value) AND NOT EXISTS (WITH "
    "RECURSIVE up(dept_id, parent_id, side) AS (SELECT d.dept_id, "
    "d.parent_id, 0 FROM department d WHERE d.dept_id = :dept UNION SELECT d.dept_id, d.parent_id, 1 FROM person p "
    "CROSS JOIN member m CROSS JOIN department d WHERE p.username = j.value AND p.active = 1 AND m.username = "
    "p.username AND d.dept_id = m.dept_id UNION SELECT d.dept_id, d.parent_id, "
    "u.side FROM up u CROSS JOIN department d WHERE d.dept_id = u.parent_id) SELECT 1 FROM up a CROSS JOIN up b "
    "WHERE a.side = 0 AND b.side = 1 AND a.parent_id IS NULL AND b.dept_id = a.dept_id) ORDER BY j.key";
#define DISCLOSURE_LOG                                                                                          \
    "SELECT l.log_id, l.username, l.op_time, l.kind, l.source_id, l.source_name, l.source_uuid, l.source_md5, " \
    "l.source_size, l.source_extension, COALESCE(p.realname, ''), COALESCE(p.head_uuid, '') FROM task_log l "   \
    "LEFT JOIN person p ON p.username = l.username WHERE l.dept_id = :dept AND l.task_id = :id AND "
/// The newest first; a kind of 0 and a person without a name stand for all.
inline constexpr auto LogOfTask = DISCLOSURE_LOG
    "(:kind = 0 OR l.kind = :kind) AND (:person = '' OR l.username = :person) ORDER BY l.rid DESC LIMIT :limit "
    "OFFSET :offset";
inline constexpr auto LogEntryById = DISCLOSURE_LOG "l.log_id = :log";
inline constexpr auto ClientEntries =
    "SELECT COUNT(*) FROM (SELECT 1 FROM task_log l WHERE l.dept_id = :dept AND l.task_id = :id AND l.kind >= 100 "
    "LIMIT :most) noted";
#define DISCLOSURE_PUSH                                                                                              \
    "SELECT config_id, dept_id, notify_advance, days_advance, advance_frequency, notify_overdue, overdue_frequency " \
    "FROM push_config "
inline constexpr auto RemindingConfigs =
    DISCLOSURE_PUSH "WHERE notify_advance = 1 OR notify_overdue = 1 ORDER BY dept_id";
inline constexpr auto PushConfigOfDept = DISCLOSURE_PUSH "WHERE dept_id = :dept";
inline constexpr auto PushConfigsOfMember = DISCLOSURE_PUSH "WHERE config_id = :id AND " DISCLOSURE_SEES("push_config");
inline constexpr auto DepartmentsOf = DISCLOSURE_REACH
    "SELECT d.dept_id, d.dept_name, COALESCE(d.parent_id, '') FROM department d "
    "WHERE d.dept_id IN (SELECT dept_id FROM reach) ORDER BY d.dept_id";
inline constexpr auto ColleaguesOf = DISCLOSURE_REACH
    "SELECT p.username, p.realname, p.head_uuid, p.dept_id FROM person p WHERE p.username IN "
    "(SELECT m.username FROM reach r CROSS JOIN member m WHERE m.dept_id = r.dept_id) ORDER BY p.username";

#define DISCLOSURE_FILE "SELECT f.name, f.extension, f.md5, f.size, f.uploaded_by, f.stored_at FROM stored_file f "
#define DISCLOSURE_SHOWS(list, column)                                                             \
    "EXISTS (SELECT 1 FROM " list " l CROSS JOIN task t WHERE l.dept_id = f.dept_id AND l." column \
    " = f.uuid AND t.rid = l.task_rid AND (t.discloser = :username OR " DISCLOSURE_RECEIVES        \
    ") AND " DISCLOSURE_IS_THERE ")"
#define DISCLOSURE_REFERS(list, column)                                                        \
    "(SELECT COUNT(*) FROM " list " l CROSS JOIN task t WHERE l.dept_id = :dept AND l." column \
    " = :uuid AND t.rid = l.task_rid AND " DISCLOSURE_IS_THERE ")"
inline constexpr auto FileByUuid = DISCLOSURE_FILE "WHERE f.dept_id = :dept AND f.uuid = :uuid";
inline constexpr auto FileOfPerson = DISCLOSURE_FILE
    "WHERE f.dept_id = :dept AND f.uuid = :uuid AND (f.uploaded_by = :username OR " DISCLOSURE_SEES("f")
    " OR " DISCLOSURE_SHOWS("task_doc", "uuid") " OR " DISCLOSURE_SHOWS(
        "task_attachment", "uuid") " OR " DISCLOSURE_SHOWS("task_attachment", "thumbnail_uuid") ")";
inline constexpr auto KnownFile = "SELECT COUNT(*) FROM stored_file f WHERE f.uuid = :uuid";
inline constexpr auto KnownFiles =
    "SELECT f.uuid FROM stored_file f WHERE f.uuid >= :first AND f.uuid <= :last ORDER BY f.uuid";
inline constexpr auto BytesUsed = "SELECT f.bytes FROM file_usage f WHERE f.dept_id = :dept";
inline constexpr auto UploadsBefore = "SELECT k.dept_id, k.uuid FROM file_upload k WHERE k.begun_at < :before";
inline constexpr auto References = "SELECT " DISCLOSURE_REFERS("task_doc", "uuid") " + " DISCLOSURE_REFERS(
    "task_attachment", "uuid") " + " DISCLOSURE_REFERS("task_attachment", "thumbnail_uuid") " + (SELECT COUNT(*) FROM "
                               "doc_content c WHERE c.dept_id = :dept AND c.uuid = :uuid)";
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
inline constexpr auto MessagesOf =
    "SELECT message.rid, message.dept_id, message.kind, message.text, message.created_at, message.is_read, "
    "COALESCE(t.task_id, ''), COALESCE(t.name, ''), COALESCE(t.catalog_id, '') FROM message LEFT JOIN task t "
    "ON t.dept_id = message.dept_id AND t.task_id = message.task_id AND (t.discloser = :username OR " DISCLOSURE_SEES(
        "message") " OR " DISCLOSURE_RECEIVES ") AND " DISCLOSURE_IS_THERE
                   " WHERE message.username = :username ORDER BY message.created_at DESC, message.rid DESC LIMIT "
                   ":limit OFFSET :offset";
inline constexpr auto MessageCount = "SELECT COUNT(*) FROM message WHERE username = :username";
inline constexpr auto UnreadCount = "SELECT COUNT(*) FROM message WHERE username = :username AND is_read = 0";
inline constexpr auto OldestReminders =
    "SELECT EXISTS (SELECT 1 FROM message m INDEXED BY message_created WHERE m.created_at < :before) + "
    "EXISTS (SELECT 1 FROM reminder r WHERE r.made_at < :before)";
inline constexpr auto RemoveOldMessages =
    "DELETE FROM message WHERE rid IN (SELECT m.rid FROM message m INDEXED BY message_created WHERE m.created_at < "
    ":before ORDER BY m.created_at LIMIT :most)";
/// How many tasks a person has in a role, in one department or, where none is named, in all.
inline constexpr auto OwnTasks =
    "SELECT COALESCE(SUM(o.number), 0) FROM own_tally o WHERE o.username = :username AND o.role IN (:role, :other) "
    "AND (:dept = '' OR o.dept_id = :dept)";
/// How many of the department's tasks have one of two states and a deadline within these days, and in one of them.
inline constexpr auto StatesOnDays =
    "SELECT COALESCE(SUM(s.number), 0) FROM state_tally s WHERE s.dept_id = :dept AND s.state IN (:state, :other) AND "
    "s.day BETWEEN :from AND :to";
inline constexpr auto StatesWithin =
    "SELECT COUNT(*) FROM task t INDEXED BY task_state WHERE t.dept_id = :dept AND t.state IN (:state, :other) AND "
    "t.deadline BETWEEN :from AND :to";
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
    "AND p.username = m.username GROUP BY p.username, p.realname, p.head_uuid HAVING MAX(p.active) = 1 "
    "ORDER BY p.username";
inline constexpr auto ProjectsOf = DISCLOSURE_REACH
    "SELECT p.ppid, p.name, p.dept_id FROM project p WHERE p.dept_id IN (SELECT dept_id FROM reach) ORDER BY p.ppid";
inline constexpr auto RightsOf =
    "WITH RECURSIVE above(dept_id, parent_id) AS (SELECT dept_id, parent_id FROM department WHERE dept_id = :dept "
    "UNION SELECT d.dept_id, d.parent_id FROM above a CROSS JOIN department d WHERE d.dept_id = a.parent_id) "
    "SELECT COALESCE(g.right_key, '') FROM above a CROSS JOIN member m LEFT JOIN granted g "
    "ON g.dept_id = m.dept_id AND g.username = m.username WHERE m.dept_id = a.dept_id AND m.username = :username";

inline constexpr auto DocFolders =
    "SELECT f.dept_id, f.folder_id, f.parent_id, f.name, f.depth, (SELECT COALESCE(SUM(y.number), 0) FROM doc_tally y "
    "WHERE y.dept_id = f.dept_id AND y.folder_id = f.folder_id AND y.deleted = 0) FROM doc_folder f "
    "WHERE f.dept_id = :dept ORDER BY f.depth, f.name";
inline constexpr auto DocFolderById =
    "SELECT f.dept_id, f.folder_id, f.parent_id, f.name, f.depth, 0 FROM doc_folder f WHERE f.dept_id = :dept AND "
    "f.folder_id = :id";
inline constexpr auto DocFolderNamed =
    "SELECT COUNT(*) FROM doc_folder f WHERE f.dept_id = :dept AND f.parent_id = :parent AND f.name = :name";
inline constexpr auto DocFolderCount = "SELECT COUNT(*) FROM doc_folder f WHERE f.dept_id = :dept";
inline constexpr auto DocFolderUsed =
    "SELECT CASE WHEN EXISTS (SELECT 1 FROM doc_folder f WHERE f.dept_id = :dept AND f.parent_id = :id) OR EXISTS "
    "(SELECT 1 FROM doc_tally y WHERE y.dept_id = :dept AND y.folder_id = :id AND y.deleted = 0 AND y.number > 0) THEN "
    "1 ELSE 0 END";
inline constexpr auto DocFolderWithin =
    "WITH RECURSIVE up(id) AS (SELECT CAST(:id AS VARCHAR(64)) UNION SELECT (SELECT f.parent_id FROM doc_folder f "
    "WHERE "
    "f.dept_id = :dept AND f.folder_id = up.id) FROM up) SELECT COUNT(*) FROM up WHERE id = :other";
#define DISCLOSURE_INSIDE                                                                                        \
    "WITH RECURSIVE inside(dept, id, level) AS (SELECT CAST(:dept AS VARCHAR(64)), CAST(:id AS VARCHAR(64)), 0 " \
    "UNION ALL SELECT f.dept_id, f.folder_id, i.level + 1 FROM inside i CROSS JOIN doc_folder f INDEXED BY "     \
    "doc_folder_name WHERE f.dept_id = i.dept AND f.parent_id = i.id) "
inline constexpr auto LevelsOfDocFolder = DISCLOSURE_INSIDE "SELECT MAX(level) FROM inside";
inline constexpr auto SinkDocFolders = DISCLOSURE_INSIDE
    "UPDATE doc_folder SET depth = depth + :by WHERE dept_id = :dept AND folder_id IN (SELECT id FROM inside)";
/// A deleted document whose folder has gone lies in the top.
#define DISCLOSURE_DOCUMENT                                                                                     \
    "SELECT d.rid, d.dept_id, d.doc_id, CASE WHEN d.deleted = 0 OR EXISTS (SELECT 1 FROM doc_folder f WHERE "   \
    "f.dept_id = d.dept_id AND f.folder_id = d.folder_id) THEN d.folder_id ELSE '0' END, d.name, d.extension, " \
    "d.uuid, d.md5, d.size, d.woven_at, d.content_number, d.updated_by, d.updated_at, d.deleted, "              \
    "COALESCE(p.realname, d.updated_by) FROM "
#define DISCLOSURE_DOCUMENT_AND_WHO " CROSS JOIN document d LEFT JOIN person p ON p.username = d.updated_by WHERE "
/// The query for the page's numbers stands between these two.
inline constexpr auto DocumentsOfPage = DISCLOSURE_DOCUMENT "(";
inline constexpr auto DocumentsOfPageEnd =
    ") page" DISCLOSURE_DOCUMENT_AND_WHO "d.rid = page.rid ORDER BY d.updated_at DESC, d.rid DESC";
inline constexpr auto DocumentsById =
    DISCLOSURE_DOCUMENT "json_each(:ids) j" DISCLOSURE_DOCUMENT_AND_WHO "d.dept_id = :dept AND d.doc_id = j.value";
inline constexpr auto LooseDocuments = DISCLOSURE_DOCUMENT
    "document d INDEXED BY document_loose LEFT JOIN person p ON p.username = d.updated_by WHERE d.loose_since > 0 AND "
    "d.loose_since <= :before ORDER BY d.loose_since LIMIT :most";
inline constexpr auto TagsOfDocuments =
    "SELECT l.doc_rid, g.tag_id, g.name FROM json_each(:rids) j CROSS JOIN doc_tagged l INDEXED BY doc_tagged_doc "
    "CROSS "
    "JOIN doc_tag g WHERE l.dept_id = :dept AND l.doc_rid = j.value AND g.dept_id = l.dept_id AND g.tag_id = l.tag_id "
    "ORDER BY l.position";
inline constexpr auto ContentsOfDocument =
    "SELECT c.uuid, c.md5, c.name, c.extension, c.size, c.updated_by, c.updated_at, COALESCE(p.realname, c.updated_by) "
    "FROM doc_content c LEFT JOIN person p ON p.username = c.updated_by WHERE c.dept_id = :dept AND c.doc_rid = :rid "
    "ORDER BY c.number DESC";
inline constexpr auto DocUpdaters =
    "SELECT DISTINCT y.updated_by, COALESCE(p.realname, y.updated_by) AS shown_name FROM doc_tally y LEFT JOIN person "
    "p "
    "ON p.username = y.updated_by WHERE y.dept_id = :dept AND y.folder_id = :folder AND y.deleted = 0 AND y.number > 0 "
    "ORDER BY shown_name, y.updated_by";
/// How many documents there are that these let in; an empty name, an empty list and 0 stand for all.
inline constexpr auto DocumentsLike =
    "SELECT COALESCE(SUM(y.number), 0) FROM doc_tally y WHERE y.dept_id = :dept AND y.folder_id = :folder AND "
    "y.deleted = :deleted AND (:person = '' OR y.updated_by = :person) AND (:extensions = '[]' OR y.extension IN "
    "(SELECT value FROM json_each(:extensions))) AND (:untagged = 0 OR y.untagged = 1)";
inline constexpr auto DocTags =
    "SELECT g.tag_id, g.name FROM doc_tag g INDEXED BY doc_tag_name WHERE g.dept_id = :dept AND g.shown > 0 "
    "ORDER BY g.name";
inline constexpr auto DocTagNamed = "SELECT g.tag_id, g.name FROM doc_tag g WHERE g.dept_id = :dept AND g.name = :name";
inline constexpr auto DocTagCount = "SELECT COUNT(*) FROM doc_tag g WHERE g.dept_id = :dept";
inline constexpr auto DocTagUses = "SELECT g.uses FROM doc_tag g WHERE g.dept_id = :dept AND g.tag_id = :tag";
inline constexpr auto LinksToDocuments =
    "SELECT COUNT(DISTINCT l.ref_doc_id), COUNT(DISTINCT l.task_rid) FROM json_each(:ids) j CROSS JOIN task_doc l "
    "INDEXED BY task_doc_ref CROSS JOIN task t WHERE l.dept_id = :dept AND l.source_type = 0 AND l.ref_doc_id = "
    "j.value "
    "AND t.rid = l.task_rid AND " DISCLOSURE_IS_THERE;

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
    CatalogIsGoing,
    TasksGoing,
    AnyTasksGoing,
    MarkSubtree,
    UncountSubtree,
    TasksToClear,
    RemovalOfTask,
    ClearCatalogs,
    TaskRid,
    StoredTaskRid,
    TasksOfPerson,
    Strangers,
    LogOfTask,
    LogEntryById,
    ClientEntries,
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
    OldestReminders,
    MessagesOf,
    MessageCount,
    UnreadCount,
    RemoveOldMessages,
    OwnTasks,
    StatesOnDays,
    StatesWithin,
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
    DocFolders,
    DocFolderById,
    DocFolderNamed,
    DocFolderCount,
    DocFolderUsed,
    DocFolderWithin,
    LevelsOfDocFolder,
    SinkDocFolders,
    DocumentsById,
    LooseDocuments,
    TagsOfDocuments,
    ContentsOfDocument,
    DocUpdaters,
    DocumentsLike,
    DocTags,
    DocTagNamed,
    DocTagCount,
    DocTagUses,
    LinksToDocuments,
};

#undef DISCLOSURE_REACH
#undef DISCLOSURE_SEES
#undef DISCLOSURE_RECEIVES
#undef DISCLOSURE_IS_THERE
#undef DISCLOSURE_CATALOG
#undef DISCLOSURE_BELOW
#undef DISCLOSURE_SUBTREE
#undef DISCLOSURE_LOG
#undef DISCLOSURE_PUSH
#undef DISCLOSURE_FILE
#undef DISCLOSURE_SHOWS
#undef DISCLOSURE_REFERS
#undef DISCLOSURE_MAIL
#undef DISCLOSURE_INSIDE
#undef DISCLOSURE_DOCUMENT
#undef DISCLOSURE_DOCUMENT_AND_WHO
#undef DISCLOSURE_THIS_REMINDER

}  // namespace disclosure::queries
