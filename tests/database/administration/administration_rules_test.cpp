// What is said and refused before the server is asked.
#include "database/administration/administration_rules.h"

#include <gtest/gtest.h>

TEST(AdministrationRules, RolesThatStay)
{
    for (const char* kept : {"postgres", "reader", "edb"})
        EXPECT_EQ(refusalToDeleteRole(kept, "me"), QString("Нельзя удалить суперпользователя postgres,reader,edb"));
    EXPECT_EQ(refusalToDeleteRole("me", "me"),
              QString("Нельзя удалить пользователя, под которым выполнено подключение"));
    EXPECT_EQ(refusalToDeleteRole("postgres", "postgres"),
              QString("Нельзя удалить суперпользователя postgres,reader,edb"));
    EXPECT_EQ(refusalToDeleteRole("Postgres", "me"), QString());
}

TEST(AdministrationRules, DatabasesThatStay)
{
    for (const char* kept : {"template0", "template1", "postgres"})
        EXPECT_EQ(refusalToDeleteDatabase(kept), QString("Нельзя удалить системную БД"));
    EXPECT_EQ(refusalToDeleteDatabase("city"), QString());
}

TEST(AdministrationRules, Questions)
{
    EXPECT_EQ(questionToDeleteRole("Иван %1"), QString("Удалить пользователя Иван %1?"));
    EXPECT_EQ(questionToDeleteDatabase("%2", "17"), QString("В БД '%2 содержится 17 записей.\nУдалить?"));
    EXPECT_EQ(questionToDeleteDatabase("city", "-"), QString("В БД 'city содержится - записей.\nУдалить?"));
}

TEST(AdministrationRules, TheSwitchTurnsOnWhateverIsNotOn)
{
    EXPECT_EQ(otherAuditValue("on"), QString("off"));
    for (const char* other : {"off", "", "-", "ON", "true"})
        EXPECT_EQ(otherAuditValue(other), QString("on")) << other;
}

TEST(AdministrationRules, TheSwitchTellsWhoMustOpenAnew)
{
    EXPECT_EQ(auditSet("city", "on", {}), QString("Аудит для 'city' установлен: on"));
    EXPECT_EQ(auditSet("city", "off", {"Пользователь a  Адрес b", "Пользователь c  Адрес "}),
              QString("Аудит для 'city' установлен: off\n%nДля вступления  в силу необходимо  переоткрыть проект:\n"
                      "Пользователь a  Адрес b\nПользователь c  Адрес "));
}
