#include <sqlite3.h>

#include <stdexcept>

#include "bench/list_peers.h"

namespace {

class Statement {
public:
    Statement(sqlite3* database, const std::string& text) {
        if (sqlite3_prepare_v2(database, text.c_str(), -1, &m_statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(text);
    }
    ~Statement() { sqlite3_finalize(m_statement); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    sqlite3_stmt* get() const { return m_statement; }
    std::size_t run() const {
        std::size_t rows = 0;
        while (sqlite3_step(m_statement) == SQLITE_ROW) ++rows;
        sqlite3_reset(m_statement);
        return rows;
    }

private:
    sqlite3_stmt* m_statement = nullptr;
};

std::string condition(const Question& question) {
    const std::string column = "c" + std::to_string(question.column);
    if (question.asked == Asked::greater) return column + " > " + question.text;
    std::string result = "(";
    for (std::string left = question.text; !left.empty();) {
        const std::string text = left.substr(0, left.find('~'));
        left.erase(0, text.size() + 1);
        const bool front = question.asked == Asked::contains || question.asked == Asked::suffix;
        const bool back = question.asked != Asked::suffix;
        result += (result.size() > 1 ? " or " : "") + column + " like '" + (front ? "%" : "") +
                  text + (back ? "%" : "") + "'";
    }
    return result + ")";
}

class SqlitePeer final : public ListPeer {
public:
    explicit SqlitePeer(const Rows& rows) {
        sqlite3_open(":memory:", &m_database);
        run("create table t (c0 text, c1 text, c2 integer, c3 text, c4 text, c5 text, c6 real)");
        run("begin");
        const Statement insert(m_database, "insert into t values (?, ?, ?, ?, ?, ?, ?)");
        for (const Row& row : rows) {
            for (int i = 0; i <= kAmount; ++i)
                sqlite3_bind_text(insert.get(), i + 1, row[static_cast<std::size_t>(i)].c_str(), -1,
                                  SQLITE_STATIC);
            insert.run();
        }
        run("commit");
    }
    ~SqlitePeer() override { sqlite3_close(m_database); }

    const char* name() const override { return "sqlite"; }
    std::size_t filter(const std::vector<Question>& questions) override {
        std::string where;
        for (const Question& question : questions)
            where += (where.empty() ? " where " : " and ") + condition(question);
        return run("select rowid from t" + where);
    }
    bool sort(int column) override {
        return run("select rowid from t order by c" + std::to_string(column)) > 0;
    }

private:
    std::size_t run(const std::string& text) { return Statement(m_database, text).run(); }

    sqlite3* m_database = nullptr;
};

}  // namespace

std::unique_ptr<ListPeer> makeSqlitePeer(const Rows& rows) {
    return std::make_unique<SqlitePeer>(rows);
}
