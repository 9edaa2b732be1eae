// TERVA_ADMIN, TERVA_AUDIT_LOG, TERVA_DB_BACKUP
#pragma once

/// Opens the administration of a server; no project is needed.
void administerServer();
/// Opens the audit log of the project's database.
void showAuditLog();
/// Asks for a file and saves the project's database into it.
void backUpDatabase();
