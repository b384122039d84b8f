#pragma once

/// Makes the toolkit paint, scale and convert images on the thread that asks for it. Otherwise it gives slices of large
/// images to a pool of threads and waits for them, for ever if the system starts no more threads. To be called once, at
/// the start of the program.
void paintInline();
