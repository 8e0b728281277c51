// The rules of the filter list written down plainly, one step after the other and as slow as that
// is: what the record store is compared with. It shares no code with it.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace mc::reference {

struct Record {
    std::vector<std::string> cells;
};

// One cell against a filter text; `value`: which is one whole value.
bool matches(const std::string& cell, const std::string& filter, bool exact, bool value = false);

// Below, equal to or above 0 as row `a` comes before, with or behind row `b`. Texts compared as
// dates (type 6) are to be of the form dd/mm/yyyy, or of lengths of their own.
int compare(int dataType, int direction, const std::string& a, const std::string& b);

struct Sorting {
    int column;
    int dataType;
    int direction;
};

struct Filter {
    int column;
    std::string text;
    bool isValue = false;
};

class List {
public:
    struct Outcome {
        int result = 0;
        std::string message;
    };

    std::size_t insertItem(std::size_t position, Record* record);
    Outcome deleteItem(std::size_t row);
    Outcome deleteStored(std::size_t position);
    void reset();
    void refresh(Record* record);
    Outcome filter();
    void sort(const Sorting& sorting);
    void unsort();
    void select(std::size_t row, bool on);

    Record* at(std::size_t row) const;
    // Each text of a column, with how many records hold it that pass the filters of the others.
    std::map<std::string, std::size_t> counts(int column) const;
    std::size_t mirrored(std::size_t row) const { return reversed ? itemCount - 1 - row : row; }

    std::vector<Record*> store;
    std::vector<std::size_t> map;  // visible row to place in the store
    std::size_t itemCount = 0;
    bool reversed = false;

    // Replaces the filter of the column; an empty text is none.
    void setFilter(const Filter& filter);

    struct {
        std::vector<Filter> filters;
        bool fit = true;  // as many texts as columns
        bool exactOnce = false, exactAlways = false;
    } wanted;
    std::optional<Sorting> sorting;

    std::set<Record*> selected;
    Record* focus = nullptr;
    Record* anchor = nullptr;

private:
    bool passes(const Record& record, int butColumn = -1) const;
    void deselectHidden();
    void showSorted(std::size_t stored);
    bool before(std::size_t a, std::size_t b) const;

    struct {  // by the last pass
        std::vector<Filter> filters;
        bool exact = false;
    } m_judge;
};

}  // namespace mc::reference
