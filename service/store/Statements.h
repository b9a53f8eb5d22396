#pragma once

#include <cstdint>
#include <soci/soci.h>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace disclosure {

/// The numbers as they stand in the brackets after IN.
std::string listed(const std::vector<std::int64_t>& numbers);

/// The texts as a list in JSON.
std::string jsonOf(const std::vector<std::string>& texts);

/// The statements of one connection. Those that are known beforehand are compiled at their first use and kept, because
/// compiling costs more than most of them take to run. What is bound is given by soci::into and soci::use, called
/// among the arguments: these refer to the variable and to its name, and both must outlive the call.
class Statements {
public:
    explicit Statements(soci::session& sql) : m_sql(sql) {}

    /// Runs a statement without rows; returns how many it has changed.
    template <class... Bound>
    long long run(std::string_view text, Bound&&... bound) {
        Kept statement(*this, text);
        statement.bind(std::forward<Bound>(bound)...);
        statement->execute(true);
        return statement->get_affected_rows();
    }

    /// As `run`, for a text that is made for one call.
    template <class... Bound>
    void runOnce(const std::string& text, Bound&&... bound) {
        soci::statement statement(m_sql);
        statement.alloc();
        statement.prepare(text);
        (statement.exchange(bound), ...);
        statement.define_and_bind();
        statement.execute(true);
    }

    /// Runs a statement for the elements of a list at the positions given. `bind` gives it, by its `exchange`, what
    /// refers to the element in turn and to its position.
    template <class Element, class Bind>
    void runEach(std::string_view text, const std::vector<Element>& elements, const std::vector<int>& positions,
                 Bind&& bind) {
        if (positions.empty())
            return;
        Element element;
        int position = 0;
        Kept statement(*this, text);
        bind(*statement, std::as_const(element), std::as_const(position));
        statement->define_and_bind();
        for (const int next : positions) {
            position = next;
            element = elements[static_cast<std::size_t>(next)];
            statement->execute(true);
        }
    }

    /// Reads the row of a query that gives one at most; false when there is none.
    template <class... Bound>
    bool one(std::string_view text, Bound&&... bound) {
        bool found = false;
        each(
            text, [&found] { found = true; }, std::forward<Bound>(bound)...);
        return found;
    }

    /// Calls `take` after every row.
    template <class Take, class... Bound>
    void each(std::string_view text, Take&& take, Bound&&... bound) {
        Kept statement(*this, text);
        statement.bind(std::forward<Bound>(bound)...);
        fetchAll(*statement, take);
    }

    /// The rows, each as it stands in `row` once it has been read.
    template <class Row, class... Bound>
    std::vector<Row> list(std::string_view text, const Row& row, Bound&&... bound) {
        std::vector<Row> found;
        each(
            text, [&] { found.push_back(row); }, std::forward<Bound>(bound)...);
        return found;
    }

    /// As `each`, with what `bind` gives the statement.
    template <class Take, class Bind>
    void eachOf(std::string_view text, Take&& take, Bind&& bind) {
        Kept statement(*this, text);
        bind(*statement);
        statement->define_and_bind();
        fetchAll(*statement, take);
    }

    /// As `eachOf`, for a text that is made for one call.
    template <class Take, class Bind>
    void eachOfOnce(const std::string& text, Take&& take, Bind&& bind) {
        soci::statement statement(m_sql);
        statement.alloc();
        statement.prepare(text);
        bind(statement);
        statement.define_and_bind();
        fetchAll(statement, take);
    }

private:
    /// A kept statement while it is in use. What was bound is let go of at the end; a statement that failed on its way
    /// is thrown away, since an unfinished query would go on seeing the state in which it began.
    class Kept {
    public:
        Kept(Statements& owner, std::string_view text);
        ~Kept();
        Kept(const Kept&) = delete;
        Kept& operator=(const Kept&) = delete;

        template <class... Bound>
        void bind(Bound&&... bound) {
            (m_entry->second.exchange(bound), ...);
            m_entry->second.define_and_bind();
        }
        soci::statement& operator*() { return m_entry->second; }
        soci::statement* operator->() { return &m_entry->second; }

    private:
        Statements& m_owner;
        std::unordered_map<std::string, soci::statement>::iterator m_entry;
        int m_failuresBefore;
    };

    template <class Take>
    static void fetchAll(soci::statement& statement, Take& take) {
        statement.execute();
        while (statement.fetch())
            take();
    }

    soci::session& m_sql;
    std::unordered_map<std::string, soci::statement> m_kept;
};

}  // namespace disclosure
