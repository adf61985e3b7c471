#pragma once

namespace brindlemoor {

/// A click on the header of the column `col`, from 1. The first click orders the rows of the
/// directory upwards by the column, the second downwards, behind the columns that were clicked
/// before; `WriteDirectoryOrder` then writes that order into the image. The third click gives up
/// all sorting and, with it, all changes of the image that are not saved. After each of them the
/// disk is read again, with its header kept, and shown.
///
/// A column that is sorted by shows its picture in the header and is `kSortWidening` wider. A
/// failure on the way shows the error box and leaves image, rows and sorting as they were.
void SortByColumn(int col);

/// Writes the names, extensions, types and formats of the grid's rows, from the first on, into the
/// directory slots of a DECB disk. A first character "?" becomes a zero byte. Where the slot holds
/// the first granule and the bytes of the last sector, the file's size is written: the routine
/// fails with 5 at the first row whose size is above 255. Other disks stay as they are.
void WriteDirectoryOrder();

/// Gives the sorting up, as opening a disk does: pictures and widening go, and no column is known
/// to have been sorted by.
void GiveUpColumnSort();

/// Hangs the click on the headers of `ListDirec`, and `GiveUpColumnSort` on the screen.
void ConnectColumnSort();

}  // namespace brindlemoor
