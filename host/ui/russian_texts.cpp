#include "russian_texts.h"

#include <QCoreApplication>
#include <QHash>
#include <QLibraryInfo>
#include <QTranslator>

namespace {

const struct {
    const char* english;
    const char* russian;
} kTexts[] = {
    {"OK", "ОК"},
    {"&OK", "ОК"},
    {"Save", "Сохранить"},
    {"&Save", "Сохранить"},
    {"Save All", "Сохранить все"},
    {"Open", "Открыть"},
    {"&Open", "Открыть"},
    {"&Yes", "&Да"},
    {"Yes to &All", "Да для &всех"},
    {"&No", "&Нет"},
    {"N&o to All", "Н&ет для всех"},
    {"Abort", "Прервать"},
    {"Retry", "Повторить"},
    {"Ignore", "Пропустить"},
    {"Close", "Закрыть"},
    {"&Close", "Закрыть"},
    {"Cancel", "Отмена"},
    {"&Cancel", "Отмена"},
    {"Discard", "Не сохранять"},
    {"Help", "Справка"},
    {"Apply", "Применить"},
    {"Reset", "Сброс"},
    {"Restore Defaults", "По умолчанию"},
    {"Don't Save", "Не сохранять"},
    {"Close without Saving", "Закрыть без сохранения"},
    {"Show Details...", "Подробнее…"},
    {"Hide Details...", "Скрыть подробности"},
    // File dialogs.
    {"Look in:", "Папка:"},
    {"File &name:", "&Имя файла:"},
    {"Files of type:", "Тип файлов:"},
    {"&Choose", "&Выбрать"},
    {"Directory:", "Папка:"},
    {"Name", "Имя"},
    {"Size", "Размер"},
    {"Type", "Тип"},
    {"Kind", "Тип"},
    {"Date Modified", "Изменён"},
    {"My Computer", "Компьютер"},
    {"Computer", "Компьютер"},
    {"Back", "Назад"},
    {"Forward", "Вперёд"},
    {"Parent Directory", "На уровень выше"},
    {"Create New Folder", "Создать папку"},
    {"List View", "Список"},
    {"Detail View", "Таблица"},
    {"&Rename", "&Переименовать"},
    {"&Delete", "&Удалить"},
    {"Show &hidden files", "Показать &скрытые"},
    {"&New Folder", "&Новая папка"},
    {"New Folder", "Новая папка"},
    {"Remove", "Убрать"},
    {"Find Directory", "Выбор папки"},
    {"Open File", "Открыть файл"},
    {"Save As", "Сохранить как"},
    {"All Files (*)", "Все файлы (*)"},
    {"Recent Places", "Недавние"},
    {"%1 already exists.\nDo you want to replace it?", "Файл %1 уже есть.\nЗаменить его?"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "Файл %1\nне найден.\nПроверьте имя файла."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "Папка %1\nне найдена.\nПроверьте имя папки."},
    // Colour dialogs.
    {"Hu&e:", "&Тон:"},
    {"&Sat:", "&Насыщенность:"},
    {"&Val:", "&Яркость:"},
    {"&Red:", "&Красный:"},
    {"&Green:", "&Зелёный:"},
    {"Bl&ue:", "&Синий:"},
    {"A&lpha channel:", "&Прозрачность:"},
    {"&HTML:", "&HTML:"},
    {"&Basic colors", "&Основные цвета"},
    {"&Custom colors", "&Свои цвета"},
    {"&Add to Custom Colors", "&Добавить к своим цветам"},
    {"&Pick Screen Color", "&Взять с экрана"},
    {"Select Color", "Выбор цвета"},
    {"Cursor at %1, %2\nPress ESC to cancel", "Точка %1, %2\nESC: отмена"},
    // Fields and their menus.
    {"&Undo", "&Отменить действие"},
    {"&Redo", "&Повторить действие"},
    {"Cu&t", "&Вырезать"},
    {"&Copy", "&Копировать"},
    {"&Paste", "В&ставить"},
    {"Delete", "Удалить"},
    {"Select All", "Выделить всё"},
    {"Step &up", "Шаг &вверх"},
    {"Step &down", "Шаг в&низ"},
    {"&Step up", "Шаг &вверх"},
    {"< &Back", "< &Назад"},
    {"&Next", "&Далее"},
    {"&Next >", "&Далее >"},
    {"&Finish", "&Готово"},
    {"Usage: %1", "Вызов: %1"},
    {"Options:", "Параметры:"},
    {"Arguments:", "Аргументы:"},
    {"[options]", "[параметры]"},
    {"Unknown option '%1'.", "Неизвестный параметр '%1'."},
    {"Missing value after '%1'.", "Нет значения после '%1'."},
    {"Go Back", "Назад"},
    {"Continue", "Продолжить"},
    {"Commit", "Применить"},
    {"Done", "Готово"},
};

class RussianTexts : public QTranslator {
public:
    explicit RussianTexts(QObject* parent) : QTranslator(parent)
    {
        for (const auto& row : kTexts)
            texts_.insert(QByteArray(row.english), QString::fromUtf8(row.russian));
    }

    bool isEmpty() const override { return false; }

    QString translate(const char*, const char* text, const char*, int) const override
    {
        return texts_.value(QByteArray(text));
    }

private:
    QHash<QByteArray, QString> texts_;
};

} // namespace

void installRussianTexts()
{
    static RussianTexts* installed = nullptr;
    if (installed)
        return;
    // The toolkit's own translation, where its package is there; ours goes first.
    auto* toolkit = new QTranslator(QCoreApplication::instance());
    if (toolkit->load(QStringLiteral("qtbase_ru"), QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(toolkit);
    installed = new RussianTexts(QCoreApplication::instance());
    QCoreApplication::installTranslator(installed);
}
