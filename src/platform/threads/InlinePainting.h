#pragma once

/// Makes the toolkit paint, scale and convert images on the thread that asks for it. By itself it hands slices of large
/// ones to a pool of threads and waits for them: for ever, when the system lets no thread be started. Once, at the
/// start of the program.
void paintInline();
