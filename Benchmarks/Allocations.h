#pragma once

/// How often the program has taken memory by `new` so far, on any thread. The toolkit takes most of its own in other
/// ways, which are not counted.
long Allocations();
