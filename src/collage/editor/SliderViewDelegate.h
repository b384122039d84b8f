#pragma once

class BaseSliderView;
class SplitSliderView;

/// Hears what the user does with a slider. Values are in the slider's units. Main thread.
class SliderViewDelegate {
public:
    virtual ~SliderViewDelegate() = default;

    virtual void beginDragAt(BaseSliderView & /*slider*/, double /*value*/) {}
    /// The knob has moved, by a drag or by seekToValue().
    virtual void didChangeValue(BaseSliderView & /*slider*/, double /*value*/) {}
    virtual void endDragAt(BaseSliderView & /*slider*/, double /*value*/) {}

    /// A handle is held; the selection may have changed already.
    virtual void splitSliderViewBeginDragClip(SplitSliderView & /*slider*/, bool /*bLeftClip*/) {}
    /// A handle has been moved; the selection has changed.
    virtual void splitSliderViewDragClipTo(SplitSliderView & /*slider*/, bool /*bLeftClip*/) {}
    virtual void splitSliderViewEndDragClip(SplitSliderView & /*slider*/, bool /*bLeftClip*/) {}
};
