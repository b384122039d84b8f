#pragma once

#include "collage/CollageForm.h"
#include "platform/widgets/FieldEditing.h"

#include <functional>
#include <memory>
#include <vector>

class ColorWell;
class FieldEditingDelegate;
class FractionSlider;
class QCheckBox;
class QLineEdit;
class QWidget;

/// The editor's controls for the rows of CollageFields, which it finds in a form by their names: fills them, reads
/// them, and says when the user changes one. What a change means is the editor's business. Main thread.
class CollageControls final {
public:
    struct Number {
        const CollageFields::Number &row;
        QLineEdit *field;
        FractionSlider *slider; ///< null where there is none
        std::unique_ptr<FieldEditing> editing;
    };
    struct Color {
        const CollageFields::Color &row;
        ColorWell *well;
    };
    /// What the user has changed, other than by typing.
    struct Changes {
        std::function<void(const Number &)> slider;
        std::function<void(const Color &)> color;
    };

    /// The form and the delegate, which hears of what is typed, must outlive this.
    CollageControls(QWidget &form, FieldEditingDelegate &delegate, Changes changes);

    /// Shows the settings; nobody hears of it.
    void fill(const CollageSettings &settings);
    /// Puts what the controls say into the form, all but the clip range.
    void readInto(CollageForm &form) const;

    /// The row of a text field; null when it has none.
    const Number *numberOf(const QLineEdit &field) const;
    static void show(QLineEdit &field, double value); ///< as a whole number, cut off
    static std::int32_t valueIn(const QLineEdit &field);

    /// As leaving the fields one by one would. False when one is refused; the focus is in that one then.
    bool endEditing();
    /// Ends all editing without asking anybody.
    void abandonEditing();
    /// Lets go of sliders that the mouse still holds.
    void releaseSliders();

private:
    struct Switch {
        const CollageFields::Switch &row;
        QCheckBox *box;
    };

    const Changes changes_;
    std::vector<Number> numbers_;
    std::vector<Color> colors_;
    std::vector<Switch> switches_;
    QObject life_; ///< ends the connections
};
