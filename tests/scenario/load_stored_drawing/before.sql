INSERT INTO positions_files (position_id, content) VALUES (1, convert_to(
E'0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1021\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n5\n2A\n100\nAcDbEntity\n8\n0\n100\nAcDbCircle\n10\n1.0\n20\n2.0\n30\n0.0\n40\n3.0\n0\nENDSEC\n0\nEOF\n', 'UTF8'));
