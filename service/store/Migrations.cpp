#include "service/store/Migrations.h"

namespace disclosure {

namespace {

// What belongs to a department has the department's id first in its keys, so that the tables can be spread over several
// database servers by department. People, sessions and log-in attempts belong to no department.
#define DISCLOSURE_SHOWN(row) \
    "CASE WHEN " row ".published = 0 THEN 0 WHEN task_receiver.username = " row ".discloser THEN 2 ELSE 1 END"
#define DISCLOSURE_TALLY_OWN(row, person, role, change)                                          \
    "BEGIN INSERT INTO own_tally VALUES (" row "." person ", " row ".dept_id, " role ", " change \
    ") ON CONFLICT "                                                                             \
    "(username, dept_id, role) DO UPDATE SET number = number + (" change "); END"
#define DISCLOSURE_TALLY_STATE(row, change)                                                                \
    "INSERT INTO state_tally VALUES (" row ".dept_id, " row ".state, " row ".deadline / 86400000, " change \
    ") ON CONFLICT (dept_id, state, day) DO UPDATE SET number = number + (" change "); "

/// An index of names: its table, and how a row of `table` comes into it and goes. `dept` is whose words they are.
#define DISCLOSURE_GRAM_TABLE(index)                                   \
    "CREATE VIRTUAL TABLE " index                                      \
    " USING fts5(grams, content = '', detail = none, columnsize = 0, " \
    "tokenize = \"ascii tokenchars '_-.'\")"
#define DISCLOSURE_GRAMS_COME(index, dept) \
    "INSERT INTO " index " (rowid, grams) VALUES (new.rid, name_grams(" dept("new") ", new.search_name)); "
#define DISCLOSURE_GRAMS_GO(index, dept) \
    "INSERT INTO " index " (" index      \
    ", rowid, grams) VALUES ('delete', old.rid, name_grams(" dept("old") ", old.search_name)); "
#define DISCLOSURE_DEPT(row) row ".dept_id"

const std::vector<Migration> Steps{
    {
        // 1: the organisation, its people and their sessions
        R"(CREATE TABLE department (dept_id VARCHAR(64) PRIMARY KEY, dept_name VARCHAR(256) NOT NULL,
            parent_id VARCHAR(64) REFERENCES department (dept_id)))",
        "CREATE INDEX department_parent ON department (parent_id)",
        R"(CREATE TABLE person (username VARCHAR(64) PRIMARY KEY, realname VARCHAR(128) NOT NULL, head_uuid
            VARCHAR(64) NOT NULL, dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), password_hash
            VARCHAR(256) NOT NULL))",
        R"(CREATE TABLE member (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), username
            VARCHAR(64) NOT NULL REFERENCES person (username), PRIMARY KEY (dept_id, username)))",
        "CREATE INDEX member_username ON member (username, dept_id)",
        R"(CREATE TABLE granted (dept_id VARCHAR(64) NOT NULL, username VARCHAR(64) NOT NULL, right_key
            VARCHAR(64) NOT NULL, PRIMARY KEY (dept_id, username, right_key), FOREIGN KEY (dept_id, username)
            REFERENCES member (dept_id, username) ON DELETE CASCADE))",
        R"(CREATE TABLE project (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), ppid INTEGER
            NOT NULL, name VARCHAR(256) NOT NULL, PRIMARY KEY (dept_id, ppid)))",
        R"(CREATE TABLE web_session (hash VARCHAR(64) PRIMARY KEY, username VARCHAR(64) NOT NULL REFERENCES
            person (username) ON DELETE CASCADE, created_at BIGINT NOT NULL, seen_at BIGINT NOT NULL))",
        "CREATE INDEX web_session_seen ON web_session (seen_at)",
        "CREATE INDEX web_session_username ON web_session (username)",
        R"(CREATE TABLE login_attempt (username VARCHAR(64) NOT NULL, address VARCHAR(64) NOT NULL, since
            BIGINT NOT NULL, attempts INTEGER NOT NULL, PRIMARY KEY (username, address)))",
        "CREATE INDEX login_attempt_since ON login_attempt (since)",
    },
    {
        // 2: the catalogs
        R"(CREATE TABLE catalog (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), catalog_id
            VARCHAR(64) NOT NULL, parent_id VARCHAR(64), name VARCHAR(512) NOT NULL, sort INTEGER NOT NULL,
            depth INTEGER NOT NULL, PRIMARY KEY (dept_id, catalog_id), FOREIGN KEY (dept_id, parent_id)
            REFERENCES catalog (dept_id, catalog_id) ON DELETE CASCADE))",
        "CREATE UNIQUE INDEX catalog_top ON catalog (dept_id) WHERE parent_id IS NULL",
        "CREATE UNIQUE INDEX catalog_name ON catalog (dept_id, parent_id, name)",
        "CREATE INDEX catalog_sort ON catalog (dept_id, parent_id, sort)",
        // Requests name a catalog without its department.
        "CREATE INDEX catalog_by_id ON catalog (catalog_id)",
    },
    {
        // 3: the tasks, as far as the catalogs need to know them
        R"(CREATE TABLE task (dept_id VARCHAR(64) NOT NULL, task_id VARCHAR(64) NOT NULL, catalog_id
            VARCHAR(64) NOT NULL, name VARCHAR(512) NOT NULL, PRIMARY KEY (dept_id, task_id), FOREIGN KEY
            (dept_id, catalog_id) REFERENCES catalog (dept_id, catalog_id) ON DELETE CASCADE))",
        "CREATE INDEX task_catalog ON task (dept_id, catalog_id)",
    },
    {
        // 4: the whole of the tasks; until now no request could store one
        "DROP TABLE task",
        "ALTER TABLE catalog ADD COLUMN task_number INTEGER NOT NULL DEFAULT 0",
        "ALTER TABLE catalog ADD COLUMN subtree_number INTEGER NOT NULL DEFAULT 0",
        "CREATE TABLE task (rid INTEGER PRIMARY KEY, dept_id VARCHAR(64) NOT NULL, task_id VARCHAR(64) NOT NULL, "
        "catalog_id VARCHAR(64) NOT NULL, name VARCHAR(512) NOT NULL, search_name VARCHAR(512) NOT NULL, "
        "discloser VARCHAR(64) NOT NULL DEFAULT '', construction_start BIGINT NOT NULL DEFAULT 0, "
        "construction_end BIGINT NOT NULL DEFAULT 0, plan_disclosure BIGINT NOT NULL DEFAULT 0, "
        "actual_disclosure BIGINT NOT NULL DEFAULT 0, expiry BIGINT NOT NULL DEFAULT 0, "
        "published INTEGER NOT NULL DEFAULT 0, remark VARCHAR(8000) NOT NULL DEFAULT '', "
        "state INTEGER NOT NULL DEFAULT 1, deadline BIGINT NOT NULL DEFAULT 9223372036854775807, "
        "updated_by VARCHAR(64) NOT NULL DEFAULT '', updated_at BIGINT NOT NULL DEFAULT 0, "
        "confirmed_at BIGINT NOT NULL DEFAULT 0, confirm_remark VARCHAR(8000) NOT NULL DEFAULT '', "
        "urged_at BIGINT NOT NULL DEFAULT 0, UNIQUE (dept_id, task_id), "
        "FOREIGN KEY (dept_id, catalog_id) REFERENCES catalog (dept_id, catalog_id) ON DELETE CASCADE)",
        "CREATE INDEX task_by_id ON task (task_id)",
        // One for each order of the list, with what its filters ask, so that passing over tasks reads nothing else.
        "CREATE INDEX task_updated ON task (dept_id, updated_at, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_name ON task (dept_id, search_name, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_discloser ON task (dept_id, discloser, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_construction_start ON task (dept_id, construction_start, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_construction_end ON task (dept_id, construction_end, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_plan ON task (dept_id, plan_disclosure, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_actual ON task (dept_id, actual_disclosure, rid, catalog_id, state, deadline)",
        "CREATE INDEX task_of_discloser ON task (discloser, dept_id)",
        "CREATE INDEX task_catalog ON task (dept_id, catalog_id, updated_at, rid, state, deadline)",
        "CREATE INDEX task_state ON task (dept_id, state, deadline, catalog_id)",
        "CREATE INDEX task_deadline ON task (dept_id, deadline, catalog_id)",
        "CREATE TABLE task_receiver (dept_id VARCHAR(64) NOT NULL, task_rid BIGINT NOT NULL, "
        "position INTEGER NOT NULL, receiver_id VARCHAR(64) NOT NULL, "
        "username VARCHAR(64) NOT NULL, confirmed_at BIGINT NOT NULL, PRIMARY KEY (dept_id, task_rid, position)) "
        "WITHOUT ROWID",
        "CREATE INDEX task_receiver_person ON task_receiver (username, dept_id, task_rid)",
        "CREATE TABLE task_viewport (dept_id VARCHAR(64) NOT NULL, task_rid BIGINT NOT NULL, "
        "position INTEGER NOT NULL, link_id VARCHAR(64) NOT NULL, "
        "ppid INTEGER NOT NULL, viewport_id VARCHAR(128) NOT NULL, PRIMARY KEY (dept_id, task_rid, position)) WITHOUT "
        "ROWID",
        "CREATE TABLE task_node (dept_id VARCHAR(64) NOT NULL, task_rid BIGINT NOT NULL, "
        "position INTEGER NOT NULL, link_id VARCHAR(64) NOT NULL, "
        "ppid INTEGER NOT NULL, node_id VARCHAR(128) NOT NULL, PRIMARY KEY (dept_id, task_rid, position)) WITHOUT "
        "ROWID",
        "CREATE TABLE task_doc (dept_id VARCHAR(64) NOT NULL, task_rid BIGINT NOT NULL, "
        "position INTEGER NOT NULL, doc_id VARCHAR(64) NOT NULL, "
        "ppid INTEGER NOT NULL, name VARCHAR(512) NOT NULL, uuid VARCHAR(128) NOT NULL, md5 VARCHAR(128) NOT NULL, "
        "size INTEGER NOT NULL, extension VARCHAR(128) NOT NULL, source_type INTEGER NOT NULL, "
        "ref_doc_id VARCHAR(128) NOT NULL, PRIMARY KEY (dept_id, task_rid, position)) WITHOUT ROWID",
        "CREATE TABLE task_attachment (dept_id VARCHAR(64) NOT NULL, task_rid BIGINT NOT NULL, "
        "position INTEGER NOT NULL, attachment_id VARCHAR(64) NOT NULL, "
        "name VARCHAR(512) NOT NULL, uuid VARCHAR(128) NOT NULL, md5 VARCHAR(128) NOT NULL, size INTEGER NOT NULL, "
        "extension VARCHAR(128) NOT NULL, thumbnail_uuid VARCHAR(128) NOT NULL, "
        "thumbnail_md5 VARCHAR(128) NOT NULL, thumbnail_size INTEGER NOT NULL, PRIMARY KEY (dept_id, task_rid, "
        "position)) "
        "WITHOUT ROWID",
        // The log outlives its task.
        "CREATE TABLE task_log (rid INTEGER PRIMARY KEY, dept_id VARCHAR(64) NOT NULL, task_id VARCHAR(64) NOT NULL, "
        "log_id VARCHAR(64) NOT NULL, username VARCHAR(64) NOT NULL, op_time BIGINT NOT NULL, kind INTEGER NOT NULL, "
        "source_id VARCHAR(128) NOT NULL DEFAULT '', source_name VARCHAR(512) NOT NULL DEFAULT '', "
        "source_uuid VARCHAR(128) NOT NULL DEFAULT '', source_md5 VARCHAR(128) NOT NULL DEFAULT '', "
        "source_size INTEGER NOT NULL DEFAULT 0, source_extension VARCHAR(128) NOT NULL DEFAULT '')",
        "CREATE INDEX task_log_task ON task_log (dept_id, task_id, rid)",
        "CREATE TABLE push_config (dept_id VARCHAR(64) PRIMARY KEY REFERENCES department (dept_id), "
        "config_id VARCHAR(64) NOT NULL, notify_advance INTEGER NOT NULL, days_advance INTEGER NOT NULL, "
        "advance_frequency INTEGER NOT NULL, notify_overdue INTEGER NOT NULL, overdue_frequency INTEGER NOT NULL)",
        "CREATE INDEX push_config_id ON push_config (config_id)",
    },
    {
// 5: what follows from the tasks by itself: their numbers in each catalog, the index of their names, and the
// end of their lists
#define DISCLOSURE_COUNT(row, change)                                                                               \
    "UPDATE catalog SET task_number = task_number " change " WHERE dept_id = " row ".dept_id AND catalog_id = " row \
    ".catalog_id; UPDATE catalog SET subtree_number = subtree_number " change " WHERE dept_id = " row               \
    ".dept_id AND catalog_id IN (WITH RECURSIVE up(id) AS (SELECT " row                                             \
    ".catalog_id UNION ALL SELECT c.parent_id FROM up CROSS JOIN catalog c WHERE c.dept_id = " row                  \
    ".dept_id AND c.catalog_id = up.id AND c.parent_id IS NOT NULL) SELECT id FROM up); "
#define DISCLOSURE_FORGET(table) "DELETE FROM " table " WHERE dept_id = old.dept_id AND task_rid = old.rid; "
        DISCLOSURE_GRAM_TABLE("task_gram"),
        "CREATE TRIGGER task_added AFTER INSERT ON task BEGIN " DISCLOSURE_COUNT("new", "+ 1")
            DISCLOSURE_GRAMS_COME("task_gram", DISCLOSURE_DEPT) "END",
        "CREATE TRIGGER task_removed AFTER DELETE ON task BEGIN " DISCLOSURE_COUNT("old", "- 1") DISCLOSURE_GRAMS_GO(
            "task_gram", DISCLOSURE_DEPT) DISCLOSURE_FORGET("task_receiver") DISCLOSURE_FORGET("task_viewport")
            DISCLOSURE_FORGET("task_node") DISCLOSURE_FORGET("task_doc") DISCLOSURE_FORGET("task_attachment") "END",
        "CREATE TRIGGER task_moved AFTER UPDATE OF catalog_id ON task WHEN new.catalog_id <> old.catalog_id "
        "BEGIN " DISCLOSURE_COUNT("old", "- 1") DISCLOSURE_COUNT("new", "+ 1") "END",
        "CREATE TRIGGER task_renamed AFTER UPDATE OF search_name ON task WHEN new.search_name <> old.search_name "
        "BEGIN " DISCLOSURE_GRAMS_GO("task_gram", DISCLOSURE_DEPT)
            DISCLOSURE_GRAMS_COME("task_gram", DISCLOSURE_DEPT) "END",
#undef DISCLOSURE_FORGET
#undef DISCLOSURE_COUNT
    },
    {
        // 6: the files
        "CREATE TABLE stored_file (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), "
        "uuid VARCHAR(64) NOT NULL, name VARCHAR(1024) NOT NULL, extension VARCHAR(16) NOT NULL, "
        "md5 VARCHAR(32) NOT NULL, size BIGINT NOT NULL, uploaded_by VARCHAR(64) NOT NULL, "
        "stored_at BIGINT NOT NULL, loose_since BIGINT NOT NULL, PRIMARY KEY (dept_id, uuid)) WITHOUT ROWID",
        // The sweep knows a content by its uuid only.
        "CREATE INDEX stored_file_uuid ON stored_file (uuid)",
        "CREATE INDEX stored_file_size ON stored_file (dept_id, size)",
        "CREATE INDEX stored_file_loose ON stored_file (loose_since) WHERE loose_since > 0",
        "CREATE TABLE file_upload (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), "
        "uuid VARCHAR(64) NOT NULL, size BIGINT NOT NULL, begun_at BIGINT NOT NULL, PRIMARY KEY (dept_id, uuid)) "
        "WITHOUT ROWID",
        "CREATE INDEX file_upload_begun ON file_upload (begun_at)",
        "CREATE INDEX task_doc_uuid ON task_doc (dept_id, uuid)",
        "CREATE INDEX task_attachment_uuid ON task_attachment (dept_id, uuid)",
        "CREATE INDEX task_attachment_thumbnail ON task_attachment (dept_id, thumbnail_uuid)",
        // A file that a list gives up, be it that its task or its catalog goes, is looked at by the next sweep.
        "CREATE TRIGGER task_doc_removed AFTER DELETE ON task_doc BEGIN UPDATE stored_file SET loose_since = 1 "
        "WHERE dept_id = old.dept_id AND uuid = old.uuid; END",
        "CREATE TRIGGER task_attachment_removed AFTER DELETE ON task_attachment BEGIN UPDATE stored_file SET "
        "loose_since = 1 WHERE dept_id = old.dept_id AND uuid IN (old.uuid, old.thumbnail_uuid); END",
    },
    {
        // 7: reminders, the messages and mails they make, and where the mails go
        "ALTER TABLE person ADD COLUMN mail VARCHAR(254) NOT NULL DEFAULT ''",
        "CREATE INDEX task_overdue ON task (dept_id, deadline, rid) WHERE state <> 2",
        "CREATE TABLE reminder_run (dept_id VARCHAR(64) NOT NULL, kind INTEGER NOT NULL, day BIGINT NOT NULL, "
        "place_time BIGINT NOT NULL, place_rid BIGINT NOT NULL, PRIMARY KEY (dept_id, kind))",
        // What a run has passed already may be changed afterwards, so that it becomes due after all.
        "CREATE TABLE reminder_changed (dept_id VARCHAR(64) NOT NULL, task_rid BIGINT NOT NULL, "
        "PRIMARY KEY (dept_id, task_rid)) WITHOUT ROWID",
        "CREATE TRIGGER task_reminded AFTER UPDATE OF plan_disclosure, deadline, published, discloser, state ON task "
        "WHEN new.state <> 2 AND EXISTS (SELECT 1 FROM push_config c WHERE c.dept_id = new.dept_id AND "
        "(c.notify_advance = 1 OR c.notify_overdue = 1)) BEGIN INSERT INTO reminder_changed (dept_id, task_rid) "
        "VALUES (new.dept_id, new.rid) ON CONFLICT DO NOTHING; END",
        "CREATE TABLE reminder (dept_id VARCHAR(64) NOT NULL, task_id VARCHAR(64) NOT NULL, kind INTEGER NOT NULL, "
        "due VARCHAR(32) NOT NULL, username VARCHAR(64) NOT NULL, made_at BIGINT NOT NULL, "
        "PRIMARY KEY (dept_id, task_id, kind, due, username)) WITHOUT ROWID",
        "CREATE INDEX reminder_made ON reminder (made_at)",
        "CREATE TABLE message (rid INTEGER PRIMARY KEY, dept_id VARCHAR(64) NOT NULL, username VARCHAR(64) NOT NULL, "
        "task_id VARCHAR(64) NOT NULL, kind INTEGER NOT NULL, text VARCHAR(1024) NOT NULL, created_at BIGINT NOT NULL, "
        "is_read INTEGER NOT NULL DEFAULT 0)",
        "CREATE INDEX message_person ON message (username, created_at, rid)",
        "CREATE INDEX message_unread ON message (username) WHERE is_read = 0",
        "CREATE INDEX message_created ON message (created_at)",
        "CREATE TABLE mail (dept_id VARCHAR(64) NOT NULL, mail_id VARCHAR(64) NOT NULL, task_id VARCHAR(64) NOT NULL, "
        "kind INTEGER NOT NULL, due VARCHAR(32) NOT NULL, username VARCHAR(64) NOT NULL, subject VARCHAR(1024) NOT "
        "NULL, text VARCHAR(1024) NOT NULL, "
        "created_at BIGINT NOT NULL, attempts INTEGER NOT NULL, claimed_at BIGINT NOT NULL, wake_at BIGINT NOT NULL, "
        "PRIMARY KEY (dept_id, mail_id))",
        "CREATE INDEX mail_wake ON mail (wake_at)",
        "CREATE INDEX mail_claimed ON mail (claimed_at)",
    },
    {
        // 8: a task is written once with all it has, so a new one may be due as well as a changed one
        "CREATE TRIGGER task_planned AFTER INSERT ON task WHEN new.state <> 2 AND (new.plan_disclosure > 0 OR "
        "new.expiry > 0) AND EXISTS (SELECT 1 FROM push_config c WHERE c.dept_id = new.dept_id AND "
        "(c.notify_advance = 1 OR c.notify_overdue = 1)) BEGIN INSERT INTO reminder_changed (dept_id, task_rid) "
        "VALUES (new.dept_id, new.rid) ON CONFLICT DO NOTHING; END",
    },
    {
// 9: which folder of files is this database's, how much each department has in it, and people who have left
#define DISCLOSURE_USE(table, event, row, sign)                                         \
    "CREATE TRIGGER " table "_" event " AFTER " event " ON " table                      \
    " BEGIN INSERT INTO file_usage (dept_id, bytes) VALUES (" row ".dept_id, " sign row \
    ".size) ON CONFLICT (dept_id) DO UPDATE SET bytes = bytes " sign row ".size; END"
        "CREATE TABLE file_folder (id VARCHAR(64) NOT NULL)",
        "INSERT INTO file_folder (id) VALUES (lower(hex(randomblob(16))))",
        "CREATE TABLE file_usage (dept_id VARCHAR(64) PRIMARY KEY REFERENCES department (dept_id), "
        "bytes BIGINT NOT NULL) WITHOUT ROWID",
        "INSERT INTO file_usage (dept_id, bytes) SELECT dept_id, SUM(size) FROM (SELECT dept_id, size FROM stored_file "
        "UNION ALL SELECT dept_id, size FROM file_upload) GROUP BY dept_id",
        DISCLOSURE_USE("stored_file", "INSERT", "new", "+ "),
        DISCLOSURE_USE("stored_file", "DELETE", "old", "- "),
        DISCLOSURE_USE("file_upload", "INSERT", "new", "+ "),
        DISCLOSURE_USE("file_upload", "DELETE", "old", "- "),
        "DROP INDEX stored_file_size",
        "ALTER TABLE person ADD COLUMN active INTEGER NOT NULL DEFAULT 1",
#undef DISCLOSURE_USE
    },
    {
        // 10: a catalog with very many tasks goes at once, and its rows are cleared away afterwards
        R"(CREATE TABLE removal (rid INTEGER PRIMARY KEY, dept_id VARCHAR(64) NOT NULL REFERENCES department
            (dept_id), log_id VARCHAR(64) NOT NULL, username VARCHAR(64) NOT NULL, removed_at BIGINT NOT NULL,
            tasks BIGINT NOT NULL))",
        "CREATE INDEX removal_dept ON removal (dept_id, tasks)",
        // The removal a catalog goes with; 0 for one that is there.
        "ALTER TABLE catalog ADD COLUMN removal INTEGER NOT NULL DEFAULT 0",
        "DROP INDEX catalog_top",
        "CREATE UNIQUE INDEX catalog_top ON catalog (dept_id) WHERE parent_id IS NULL AND removal = 0",
        "CREATE INDEX catalog_removed ON catalog (removal, depth) WHERE removal > 0",
        "CREATE INDEX catalog_uncleared ON catalog (removal, catalog_id) WHERE removal > 0 AND task_number > 0",
    },
    {
        // 11: lists and their totals cost what a page costs, however many tasks a person or a status has
        "CREATE INDEX task_log_id ON task_log (dept_id, task_id, log_id)",
        // What a receiver is shown: 0 nothing yet, 1 the published task, 2 the same to whom it is the own already.
        "ALTER TABLE task_receiver ADD COLUMN shown INTEGER NOT NULL DEFAULT 0",
        "UPDATE task_receiver SET shown = (SELECT " DISCLOSURE_SHOWN(
            "t") " FROM task t WHERE t.rid = task_receiver.task_rid)",
        "DROP INDEX task_receiver_person",
        "CREATE INDEX task_receiver_person ON task_receiver (username, shown, task_rid, dept_id)",
        "DROP INDEX task_of_discloser",
        "CREATE INDEX task_of_discloser ON task (discloser, rid, dept_id)",
        "CREATE TRIGGER task_shown AFTER UPDATE OF published, discloser ON task WHEN new.published <> old.published OR "
        "new.discloser <> old.discloser BEGIN UPDATE task_receiver SET shown = " DISCLOSURE_SHOWN(
            "new") " WHERE dept_id = new.dept_id AND task_rid = new.rid; END",
        // How many tasks a person has in a department; the role is as `shown` is, and 3 for those to disclose.
        "CREATE TABLE own_tally (username VARCHAR(64) NOT NULL, dept_id VARCHAR(64) NOT NULL, role INTEGER NOT NULL, "
        "number BIGINT NOT NULL, PRIMARY KEY (username, dept_id, role)) WITHOUT ROWID",
        "CREATE TRIGGER own_added AFTER INSERT ON task WHEN new.discloser <> '' " DISCLOSURE_TALLY_OWN(
            "new", "discloser", "3", "1"),
        "CREATE TRIGGER own_removed AFTER DELETE ON task WHEN old.discloser <> '' " DISCLOSURE_TALLY_OWN(
            "old", "discloser", "3", "-1"),
        "CREATE TRIGGER own_given AFTER UPDATE OF discloser ON task WHEN new.discloser NOT IN (old.discloser, "
        "'') " DISCLOSURE_TALLY_OWN("new", "discloser", "3", "1"),
        "CREATE TRIGGER own_taken AFTER UPDATE OF discloser ON task WHEN old.discloser NOT IN (new.discloser, "
        "'') " DISCLOSURE_TALLY_OWN("old", "discloser", "3", "-1"),
        "CREATE TRIGGER shown_added AFTER INSERT ON task_receiver WHEN new.shown > 0 " DISCLOSURE_TALLY_OWN(
            "new", "username", "new.shown", "1"),
        "CREATE TRIGGER shown_removed AFTER DELETE ON task_receiver WHEN old.shown > 0 " DISCLOSURE_TALLY_OWN(
            "old", "username", "old.shown", "-1"),
        "CREATE TRIGGER shown_from AFTER UPDATE OF shown ON task_receiver WHEN new.shown NOT IN (old.shown, "
        "0) " DISCLOSURE_TALLY_OWN("new", "username", "new.shown", "1"),
        "CREATE TRIGGER shown_until AFTER UPDATE OF shown ON task_receiver WHEN old.shown NOT IN (new.shown, "
        "0) " DISCLOSURE_TALLY_OWN("old", "username", "old.shown", "-1"),
        "INSERT INTO own_tally SELECT discloser, dept_id, 3, COUNT(*) FROM task WHERE discloser <> '' GROUP BY "
        "discloser, dept_id",
        "INSERT INTO own_tally SELECT username, dept_id, shown, COUNT(*) FROM task_receiver WHERE shown > 0 "
        "GROUP BY username, dept_id, shown",
        // How many tasks of a department have a state and a deadline within a day, from which follows how many have a
        // status at any time.
        "CREATE TABLE state_tally (dept_id VARCHAR(64) NOT NULL, state INTEGER NOT NULL, day BIGINT NOT NULL, "
        "number BIGINT NOT NULL, PRIMARY KEY (dept_id, state, day)) WITHOUT ROWID",
        "CREATE TRIGGER state_added AFTER INSERT ON task BEGIN " DISCLOSURE_TALLY_STATE("new", "1") "END",
        "CREATE TRIGGER state_removed AFTER DELETE ON task BEGIN " DISCLOSURE_TALLY_STATE("old", "-1") "END",
        "CREATE TRIGGER state_changed AFTER UPDATE OF state, deadline ON task WHEN new.state <> old.state OR "
        "new.deadline <> old.deadline BEGIN " DISCLOSURE_TALLY_STATE("old", "-1")
            DISCLOSURE_TALLY_STATE("new", "1") "END",
        "INSERT INTO state_tally SELECT dept_id, state, deadline / 86400000, COUNT(*) FROM task "
        "GROUP BY dept_id, state, deadline / 86400000",
    },
    {
        // 12: capitals and small letters are the same in every script; until now some were passed over
        "UPDATE task SET search_name = search_name(name) WHERE search_name <> search_name(name)",
    },
    {
// 13: the store of documents. The folder '0' is the top: it has no row, and its tallies count every document of the
// department. The words of deleted documents are as those of a department of its own.
#define DISCLOSURE_DOC_WORDS(row) row ".dept_id || CASE " row ".deleted WHEN 0 THEN '' ELSE '.' END"
#define DISCLOSURE_TALLY_DOC(row, change)                                                                              \
    "INSERT INTO doc_tally SELECT " row ".dept_id, f.id, " row ".deleted, " row ".updated_by, " row ".extension, " row \
    ".tag_number = 0, " change " FROM (SELECT '0' AS id UNION SELECT " row                                             \
    ".folder_id) f WHERE true ON CONFLICT (dept_id, folder_id, deleted, updated_by, extension, untagged) DO UPDATE "   \
    "SET number = number + (" change "); "
#define DISCLOSURE_SHOW_TAGS(change)                                  \
    "UPDATE doc_tag SET shown = shown " change                        \
    " WHERE dept_id = new.dept_id AND tag_id IN (SELECT tag_id FROM " \
    "doc_tagged WHERE dept_id = new.dept_id AND doc_rid = new.rid); "
#define DISCLOSURE_FORGET(table) "DELETE FROM " table " WHERE dept_id = old.dept_id AND doc_rid = old.rid; "
        R"(CREATE TABLE doc_folder (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), folder_id VARCHAR(64)
            NOT NULL, parent_id VARCHAR(64) NOT NULL, name VARCHAR(512) NOT NULL, depth INTEGER NOT NULL, PRIMARY KEY
            (dept_id, folder_id)) WITHOUT ROWID)",
        "CREATE UNIQUE INDEX doc_folder_name ON doc_folder (dept_id, parent_id, name)",
        "CREATE INDEX doc_folder_depth ON doc_folder (dept_id, depth, name)",
        // The row is that of the newest content. `loose_since` is when a document was deleted that no task links; 0
        // while it is there or a task links it.
        R"(CREATE TABLE document (rid INTEGER PRIMARY KEY, dept_id VARCHAR(64) NOT NULL REFERENCES department
            (dept_id), doc_id VARCHAR(64) NOT NULL, folder_id VARCHAR(64) NOT NULL, name VARCHAR(512) NOT NULL,
            search_name VARCHAR(512) NOT NULL, extension VARCHAR(16) NOT NULL, uuid VARCHAR(64) NOT NULL, md5
            VARCHAR(32) NOT NULL, size BIGINT NOT NULL, woven_at BIGINT NOT NULL, tag_number INTEGER NOT NULL,
            content_number INTEGER NOT NULL, updated_by VARCHAR(64) NOT NULL, updated_at BIGINT NOT NULL, deleted
            INTEGER NOT NULL DEFAULT 0, loose_since BIGINT NOT NULL DEFAULT 0, UNIQUE (dept_id, doc_id)))",
        // Each with what the filters ask, so that passing over documents reads nothing else.
        R"(CREATE INDEX document_updated ON document (dept_id, deleted, updated_at, rid, extension, updated_by,
            tag_number, woven_at))",
        R"(CREATE INDEX document_folder ON document (dept_id, folder_id, deleted, updated_at, rid, extension,
            updated_by, tag_number, woven_at))",
        R"(CREATE INDEX document_untagged ON document (dept_id, deleted, updated_at, rid, extension, updated_by,
            woven_at) WHERE tag_number = 0)",
        R"(CREATE INDEX document_extension ON document (dept_id, deleted, extension, folder_id, updated_by, tag_number,
            woven_at))",
        R"(CREATE INDEX document_updater ON document (dept_id, deleted, updated_by, folder_id, extension, tag_number,
            woven_at))",
        R"(CREATE INDEX document_woven ON document (dept_id, deleted, woven_at, folder_id, extension, updated_by,
            tag_number))",
        "CREATE INDEX document_loose ON document (loose_since) WHERE loose_since > 0",
        R"(CREATE TABLE doc_content (dept_id VARCHAR(64) NOT NULL, doc_rid BIGINT NOT NULL, number INTEGER NOT NULL,
            uuid VARCHAR(64) NOT NULL, md5 VARCHAR(32) NOT NULL, name VARCHAR(512) NOT NULL, extension VARCHAR(16) NOT
            NULL, size BIGINT NOT NULL, updated_by VARCHAR(64) NOT NULL, updated_at BIGINT NOT NULL, PRIMARY KEY
            (dept_id, doc_rid, number)) WITHOUT ROWID)",
        "CREATE INDEX doc_content_uuid ON doc_content (dept_id, uuid)",
        // How many documents have the tag, and how many of these are not deleted.
        R"(CREATE TABLE doc_tag (dept_id VARCHAR(64) NOT NULL REFERENCES department (dept_id), tag_id VARCHAR(64) NOT
            NULL, name VARCHAR(256) NOT NULL, uses INTEGER NOT NULL DEFAULT 0, shown INTEGER NOT NULL DEFAULT 0,
            PRIMARY KEY (dept_id, tag_id)) WITHOUT ROWID)",
        "CREATE UNIQUE INDEX doc_tag_name ON doc_tag (dept_id, name)",
        R"(CREATE TABLE doc_tagged (dept_id VARCHAR(64) NOT NULL, tag_id VARCHAR(64) NOT NULL, doc_rid BIGINT NOT NULL,
            position INTEGER NOT NULL, PRIMARY KEY (dept_id, tag_id, doc_rid)) WITHOUT ROWID)",
        "CREATE INDEX doc_tagged_doc ON doc_tagged (dept_id, doc_rid, position)",
        R"(CREATE TABLE doc_tally (dept_id VARCHAR(64) NOT NULL, folder_id VARCHAR(64) NOT NULL, deleted INTEGER NOT
            NULL, updated_by VARCHAR(64) NOT NULL, extension VARCHAR(16) NOT NULL, untagged INTEGER NOT NULL, number
            BIGINT NOT NULL, PRIMARY KEY (dept_id, folder_id, deleted, updated_by, extension, untagged)) WITHOUT
            ROWID)",
        DISCLOSURE_GRAM_TABLE("doc_gram"),
        "CREATE TRIGGER document_added AFTER INSERT ON document BEGIN " DISCLOSURE_TALLY_DOC("new", "1")
            DISCLOSURE_GRAMS_COME("doc_gram", DISCLOSURE_DOC_WORDS) "END",
        "CREATE TRIGGER document_removed AFTER DELETE ON document BEGIN " DISCLOSURE_TALLY_DOC("old", "-1")
            DISCLOSURE_GRAMS_GO("doc_gram", DISCLOSURE_DOC_WORDS) DISCLOSURE_FORGET("doc_tagged")
                DISCLOSURE_FORGET("doc_content") "END",
        "CREATE TRIGGER document_changed AFTER UPDATE OF folder_id, deleted, updated_by, extension, tag_number ON "
        "document WHEN (new.folder_id, new.deleted, new.updated_by, new.extension, new.tag_number) <> "
        "(old.folder_id, old.deleted, old.updated_by, old.extension, old.tag_number) "
        "BEGIN " DISCLOSURE_TALLY_DOC("old", "-1") DISCLOSURE_TALLY_DOC("new", "1") "END",
        "CREATE TRIGGER document_renamed AFTER UPDATE OF search_name, deleted ON document WHEN (new.search_name, "
        "new.deleted) <> (old.search_name, old.deleted) "
        "BEGIN " DISCLOSURE_GRAMS_GO("doc_gram", DISCLOSURE_DOC_WORDS)
            DISCLOSURE_GRAMS_COME("doc_gram", DISCLOSURE_DOC_WORDS) "END",
        "CREATE TRIGGER document_hidden AFTER UPDATE OF deleted ON document WHEN new.deleted > old.deleted "
        "BEGIN " DISCLOSURE_SHOW_TAGS("- 1") "END",
        "CREATE TRIGGER document_shown AFTER UPDATE OF deleted ON document WHEN new.deleted < old.deleted "
        "BEGIN " DISCLOSURE_SHOW_TAGS("+ 1") "END",
        R"(CREATE TRIGGER doc_tagged_added AFTER INSERT ON doc_tagged BEGIN UPDATE doc_tag SET uses = uses + 1, shown =
            shown + (SELECT COUNT(*) FROM document d WHERE d.rid = new.doc_rid AND d.deleted = 0) WHERE dept_id =
            new.dept_id AND tag_id = new.tag_id; END)",
        R"(CREATE TRIGGER doc_tagged_removed AFTER DELETE ON doc_tagged BEGIN UPDATE doc_tag SET uses = uses - 1, shown
            = shown - (SELECT COUNT(*) FROM document d WHERE d.rid = old.doc_rid AND d.deleted = 0) WHERE dept_id =
            old.dept_id AND tag_id = old.tag_id; DELETE FROM doc_tag WHERE dept_id = old.dept_id AND tag_id =
            old.tag_id AND uses = 0; END)",
        "CREATE TRIGGER doc_content_removed AFTER DELETE ON doc_content BEGIN UPDATE stored_file SET loose_since = 1 "
        "WHERE dept_id = old.dept_id AND uuid = old.uuid; END",
        // What a task gives up may have been deleted meanwhile.
        "CREATE INDEX task_doc_ref ON task_doc (dept_id, ref_doc_id) WHERE source_type = 0",
        R"(CREATE TRIGGER task_doc_unlinked AFTER DELETE ON task_doc WHEN old.source_type = 0 BEGIN UPDATE document SET
            loose_since = updated_at WHERE dept_id = old.dept_id AND doc_id = old.ref_doc_id AND deleted = 1; END)",
#undef DISCLOSURE_FORGET
#undef DISCLOSURE_SHOW_TAGS
#undef DISCLOSURE_TALLY_DOC
#undef DISCLOSURE_DOC_WORDS
    },
};

#undef DISCLOSURE_DEPT
#undef DISCLOSURE_GRAMS_GO
#undef DISCLOSURE_GRAMS_COME
#undef DISCLOSURE_GRAM_TABLE
#undef DISCLOSURE_TALLY_STATE
#undef DISCLOSURE_TALLY_OWN
#undef DISCLOSURE_SHOWN

}  // namespace

std::span<const Migration> migrations() {
    return Steps;
}

}  // namespace disclosure
