#include "database/forms/administration_commands.h"

#include "database/forms/admin_form.h"
#include "database/forms/audit_log_form.h"
#include "database/forms/backup_dialogs.h"
#include "formkit/modal.h"
#include "session/forms/connection_fields.h"

void administerServer() { runModal<AdminForm>(); }

void showAuditLog() { runModal<AuditLogViewerForm>(); }

void backUpDatabase()
{
    const QString target = askBackupFile();
    if (target.isEmpty())
        return;
    static DatabaseBackup backup; // remembers the utility that suits the server
    BackupBoxes boxes;
    backup.run({connectionOf(session()), target}, boxes);
}
