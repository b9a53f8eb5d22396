#pragma once

#include <functional>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

/// The statements of a call of the store, run by nothing but the engine.
namespace bench {

inline std::vector<std::string>* recorded = nullptr;

/// From now on every connection notes its statements while somebody asks for them, since the store does not hand out
/// its own. To be called before the first connection.
inline void watchStatements() {
    const auto record = [](unsigned, void*, void* statement, void*) {
        if (recorded) {
            char* text = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
            recorded->emplace_back(text);
            sqlite3_free(text);
        }
        return 0;
    };
    static int (*const note)(unsigned, void*, void*, void*) = record;
    int (*const watch)(sqlite3*, char**, const sqlite3_api_routines*) = [](sqlite3* connection, char**,
                                                                           const sqlite3_api_routines*) {
        return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, note, nullptr);
    };
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
}

/// What one call asks of the database, every column read, on a connection of its own.
class Bare {
public:
    Bare(const std::string& file, const std::function<void()>& call) {
        recorded = &m_texts;
        call();
        recorded = nullptr;
        sqlite3_open(file.c_str(), &m_connection);
    }
    ~Bare() { sqlite3_close(m_connection); }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    void run() {
        for (const std::string& text : m_texts) {
            sqlite3_stmt* statement = nullptr;
            if (sqlite3_prepare_v2(m_connection, text.c_str(), -1, &statement, nullptr) != SQLITE_OK)
                throw std::runtime_error(text);
            const int columns = sqlite3_column_count(statement);
            while (sqlite3_step(statement) == SQLITE_ROW) {
                for (int i = 0; i < columns; ++i)
                    m_read += std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, i))).size();
            }
            sqlite3_finalize(statement);
        }
    }

private:
    std::vector<std::string> m_texts;
    sqlite3* m_connection = nullptr;
    std::size_t m_read = 0;
};

}  // namespace bench
