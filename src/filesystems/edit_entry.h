#pragma once

namespace brindlemoor {

/// Writes what editing can change of the row `row` of `DirTable` into the image: name, extension,
/// type, format, first granule and bytes of the last sector, where the directory slot of that row
/// stands on a DECB disk, whatever the family is. Name and extension are written as they are: ones
/// that are shorter than 8 and 3 characters move the bytes behind them forward. The image keeps its
/// length; what would lie behind its end is dropped. Fails with 9 on a row outside the table.
void WriteEditedEntry(int row);

}  // namespace brindlemoor
