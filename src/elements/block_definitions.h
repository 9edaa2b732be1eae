// The block definitions of the registry, carried beside the module as drawings.
#pragma once

/// Brings every definition that the working drawing lacks out of its file
/// "blocks/<type_id>.dwg" beside the module. A file that cannot be loaded is
/// reported and passed over; false only without a block table.
bool ensureBlockDefinitions();
