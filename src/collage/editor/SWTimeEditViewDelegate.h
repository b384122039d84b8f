#pragma once

class SWTimeEditView;

/// Decides on the times that the user enters in a time entry view, and hears of them. Main thread.
class SWTimeEditViewDelegate {
public:
    virtual ~SWTimeEditViewDelegate() = default;

    /// Whether the view may keep this time; finite, in seconds, negative perhaps.
    virtual bool isValid(SWTimeEditView &view, double seconds) = 0;
    /// The user has entered this time, and it was valid.
    virtual void didChangeValue(SWTimeEditView &view, double seconds) = 0;
};
