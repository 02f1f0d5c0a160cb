// An edit of the project model as one step: what it changed, to be undone and redone exactly,
// and the messages the system gives an author instead of a change, or beside one.
#pragma once

#include "project/model.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orrery {

// A message box of the editor: its title and text, in the system's own words.
struct Message {
    std::string title;
    std::string text;
    bool operator==(const Message &) const = default;
};

// A question the front end asks before it calls an operation; the core only names it.
struct Question {
    std::string_view title;
    std::string_view text;
};

// Every place an operation writes, with the value it held before and the one it holds after.
// Undo puts the old values back in the reverse order; redo the new ones in order. Both
// assign: neither depends on what a save or another step did in between.
class Change {
public:
    Change() = default;
    explicit Change(std::string name) : m_name(std::move(name)) {}

    // The step's name, for the Undo and Redo menu entries.
    const std::string &name() const { return m_name; }
    bool empty() const { return m_writes.empty(); }
    void Undo(ProjectModel &model) const;
    void Redo(ProjectModel &model) const;

    // Takes over the writes of a later change: one step made of two.
    void Append(Change &&later);

    // Steps an author repeats on the same things (an arrow key held down, a drag) are one
    // step: a change whose merge key is not empty takes over a following change with the same
    // key. Empty for a step that stands alone.
    const std::string &mergeKey() const { return m_mergeKey; }
    void setMergeKey(std::string key) { m_mergeKey = std::move(key); }

    // Records a write whose effect has already been made.
    void Record(std::function<void(ProjectModel &)> redo, std::function<void(ProjectModel &)> undo);

private:
    struct Write {
        std::function<void(ProjectModel &)> redo;
        std::function<void(ProjectModel &)> undo;
    };
    std::string m_name;
    std::string m_mergeKey;
    std::vector<Write> m_writes;
};

// What an operation gives back: its change (possibly empty: nothing to do), or the refusal
// that stopped it with the model as it was; and the notes to show beside a change.
struct Outcome {
    Change change;
    std::optional<Message> refusal;
    std::vector<Message> notes;

    bool refused() const { return refusal.has_value(); }
};

// Writes an operation makes, applied to the model as they come so that the operation reads
// its own work, and recorded for undo. A transaction not finished is rolled back: an
// operation that refuses half-way leaves the model as it found it.
class Transaction {
public:
    Transaction(ProjectModel &model, std::string name)
        : m_model(model), m_change(std::move(name)) {}
    ~Transaction() {
        if (!m_done) m_change.Undo(m_model);
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    ProjectModel &model() { return m_model; }
    void setMergeKey(std::string key) { m_change.setMergeKey(std::move(key)); }

    // Sets the place that `at` names to a value; `at` takes the model and returns a reference
    // to the place, and must name the same place each time it is called.
    template <typename At, typename Value> void Set(At at, Value value) {
        auto &place = at(m_model);
        using Type = std::decay_t<decltype(place)>;
        Type before = place;
        Type after = std::move(value);
        if (before == after) return;
        place = after;
        m_change.Record([at, after](ProjectModel &m) { at(m) = after; },
                        [at, before](ProjectModel &m) { at(m) = before; });
    }

    // Takes in an operation run inside this one: its writes become part of this step. Answers
    // its refusal, if it refused (its own writes are undone already).
    std::optional<Message> Take(Outcome &&inner) {
        m_change.Append(std::move(inner.change));
        return std::move(inner.refusal);
    }

    // Ends the transaction: the writes stay and are handed over.
    Outcome Commit(std::vector<Message> notes = {}) {
        m_done = true;
        return {std::move(m_change), std::nullopt, std::move(notes)};
    }
    // Ends it with a refusal: every write is undone.
    Outcome Refuse(Message refusal) {
        m_change.Undo(m_model);
        m_done = true;
        return {Change(), std::move(refusal), {}};
    }

private:
    ProjectModel &m_model;
    Change m_change;
    bool m_done = false;
};

} // namespace orrery
