// SPDX-License-Identifier: MIT
#include "storage/csv_dict_reader.h"

namespace vel {

List<CSVDictReader::Texts>* CSVDictReader::get_List() {
    internalGetList();
    return &list_;
}

void CSVDictReader::internalGetList() {
    Array<String> row(20);
    while (reader_.get_Array(row)) {
        Texts& texts = list_.AddHead(Texts::emptyInstance());
        for (int i = 0; i < row.count; i += 2) {
            texts.Add(row[i], i + 1 < row.count ? row[i + 1] : String());
        }
    }
}

}  // namespace vel
