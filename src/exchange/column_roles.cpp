#include "exchange/column_roles.h"

void ColumnRoles::give(int role, int column)
{
    clear(column);
    columns_[role] = column;
}

void ColumnRoles::clear(int column)
{
    for (int& taken : columns_) {
        if (taken == column)
            taken = -1;
    }
}
