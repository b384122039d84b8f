#pragma once

#include <memory>
#include <vector>

class KTMovieObject;

/// The list that the collage editor works on, as the editor sees it. Main thread.
class CollageEditorHost {
public:
    virtual ~CollageEditorHost() = default;

    /// The movies of the list, in its order.
    virtual std::vector<std::shared_ptr<KTMovieObject>> aryItems() const = 0;
    /// Selects the movie before or after the selected one and shows it in the editor.
    virtual void selectPrevMovie() = 0;
    virtual void selectNextMovie() = 0;
    /// Shows the movies as they are now.
    virtual void reloadData() = 0;
};
