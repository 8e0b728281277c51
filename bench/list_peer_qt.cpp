#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QStringList>

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

// Filters as its documentation shows, by overriding filterAcceptsRow(): three times as fast as by a
// regular expression.
class Proxy final : public QSortFilterProxyModel {
public:
    void ask(const std::vector<Question>& questions) {
        m_questions.clear();
        for (const Question& question : questions) {
            const QString text = QString::fromStdString(question.text);
            m_questions.push_back(
                {question.column, question.asked, text.split('~'), text.toDouble()});
        }
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        for (const Asking& question : m_questions)
            if (!accepts(question, sourceModel()->index(row, question.column, parent)))
                return false;
        return true;
    }

private:
    struct Asking {
        int column;
        Asked asked;
        QStringList texts;
        double number;
    };

    static bool accepts(const Asking& question, const QModelIndex& index) {
        const QString cell = index.data().toString();
        switch (question.asked) {
            case Asked::suffix:
                return cell.endsWith(question.texts[0], Qt::CaseInsensitive);
            case Asked::contains:
                return cell.contains(question.texts[0], Qt::CaseInsensitive);
            case Asked::greater:
                return cell.toDouble() > question.number;
            default:
                break;
        }
        for (const QString& text : question.texts)
            if (cell.startsWith(text, Qt::CaseInsensitive)) return true;
        return false;
    }

    std::vector<Asking> m_questions;
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

private:
    Model m_model;
    Proxy m_proxy;
};

}  // namespace

std::unique_ptr<ListPeer> makeQtPeer(const Rows& rows) {
    return std::make_unique<QtPeer>(rows);
}
