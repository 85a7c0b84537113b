#pragma once

#include <vector>

class CFileRes;
class Environment;

/// The order of a list of files: its rows, each by its number of now. A sort state of 1 is ascending by ID, -1
/// descending; any other sorts by path, also that of the column of types, and 0 leaves the order. Equal rows stay as
/// they are.
[[nodiscard]] std::vector<int> FileOrder(const std::vector<CFileRes *> &rows, const Environment &env, int sortState);
