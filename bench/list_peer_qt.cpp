#include <QAbstractTableModel>
#include <QRegularExpression>
#include <QSortFilterProxyModel>

#include "bench/list_peers.h"

namespace {

class Model final : public QAbstractTableModel {
public:
    explicit Model(const Rows& rows) : m_cells(rows.size()) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            for (std::size_t column = 0; column < rows[i].size(); ++column)
                m_cells[i][column] = QString::fromStdString(rows[i][column]);
    }
    int rowCount(const QModelIndex&) const override { return static_cast<int>(m_cells.size()); }
    int columnCount(const QModelIndex&) const override { return kTextColumns + 1; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        return m_cells[static_cast<std::size_t>(index.row())]
                      [static_cast<std::size_t>(index.column())];
    }

private:
    std::vector<std::array<QString, kTextColumns + 1>> m_cells;
};

// One text filter is the proxy's own; numbers and several columns are asked for by overriding it.
class Proxy final : public QSortFilterProxyModel {
public:
    void ask(const std::vector<Question>& questions) {
        m_questions = questions;
        m_expressions.clear();
        for (const Question& question : questions) m_expressions.push_back(expression(question));
        const bool own = questions.size() == 1 && questions[0].asked != Asked::greater;
        m_overridden = !own;
        setFilterKeyColumn(questions[0].column);
        setFilterRegularExpression(own ? m_expressions[0] : QRegularExpression());
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        if (!m_overridden) return QSortFilterProxyModel::filterAcceptsRow(row, parent);
        for (std::size_t i = 0; i < m_questions.size(); ++i) {
            const auto index = sourceModel()->index(row, m_questions[i].column, parent);
            const QString text = index.data().toString();
            const bool passes = m_questions[i].asked == Asked::greater
                                    ? text.toDouble() > m_bound
                                    : text.contains(m_expressions[i]);
            if (!passes) return false;
        }
        return true;
    }
    bool lessThan(const QModelIndex& a, const QModelIndex& b) const override {
        if (a.column() != 2 && a.column() != kAmount) return QSortFilterProxyModel::lessThan(a, b);
        return a.data().toString().toDouble() < b.data().toString().toDouble();
    }

private:
    QRegularExpression expression(const Question& question) {
        const QString text = QString::fromStdString(question.text);
        QString pattern = text;
        if (question.asked == Asked::prefix) pattern = "^" + text;
        if (question.asked == Asked::suffix) pattern = text + "$";
        if (question.asked == Asked::alternatives)
            pattern = "^(" + QString(text).replace("~", "|") + ")";
        if (question.asked == Asked::greater) m_bound = text.toDouble();
        return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
    }

    std::vector<Question> m_questions;
    std::vector<QRegularExpression> m_expressions;
    double m_bound = 0;
    bool m_overridden = false;
};

class QtPeer final : public ListPeer {
public:
    explicit QtPeer(const Rows& rows) : m_model(rows) {
        m_proxy.setSourceModel(&m_model);
        m_proxy.setDynamicSortFilter(false);
        m_proxy.rowCount();
    }
    const char* name() const override { return "qt"; }
    std::size_t filter(const std::vector<Question>& questions) override {
        m_proxy.ask(questions);
        return static_cast<std::size_t>(m_proxy.rowCount());
    }
    void sort(int column) override {
        m_proxy.sort(-1);
        m_proxy.sort(column);
    }

private:
    Model m_model;
    Proxy m_proxy;
};

}  // namespace

std::unique_ptr<ListPeer> makeQtPeer(const Rows& rows) {
    return std::make_unique<QtPeer>(rows);
}
