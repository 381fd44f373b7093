// Field names from debug metadata.
#pragma once

// Gives the members of the aggregates the names that the metadata lines have for them. A line that doesn't fit is
// ignored.
void namefields();
