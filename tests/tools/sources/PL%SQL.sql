-- raises salaries
CREATE OR REPLACE PROCEDURE raise_all IS
  total NUMBER := 0;
BEGIN
  FOR r IN (SELECT id FROM staff) LOOP
    UPDATE staff SET pay = pay * 1.1 WHERE id = r.id;
  END LOOP;
  DBMS_OUTPUT.PUT_LINE('done');
END;
