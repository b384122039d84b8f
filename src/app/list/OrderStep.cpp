#include "app/list/OrderStep.h"

#include <utility>

OrderStep::OrderStep(MovieList &list, MovieList::Movies before, MovieList::Movies after, const QString &text,
                     MovieList::Movies moved) :
    QUndoCommand(text), list_(list), before_(std::move(before)), after_(std::move(after)), moved_(std::move(moved))
{
}

int OrderStep::id() const
{
    return moved_.empty() ? -1 : 0;
}

bool OrderStep::mergeWith(const QUndoCommand *next)
{
    const auto *step = dynamic_cast<const OrderStep *>(next);
    // Movies that were loaded in between are in the next step's orders alone.
    if (!step || step->moved_ != moved_ || step->before_ != after_) {
        return false;
    }
    after_ = step->after_;
    setObsolete(after_ == before_);
    return true;
}
